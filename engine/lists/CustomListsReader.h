// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "engine/lists/CustomLists.h"
#include "engine/lists/QFCleanerLibrary.h"

namespace qf {

/// What every cleaner of a person's begins with that gives no token of its own.
inline constexpr std::string_view customTokenPrefix = "#CUSTOM:";

/// Of a cleaner's entry in the document; made of its name where it gives none.
std::string cleanerToken(const nlohmann::ordered_json& entry);
/// Of an entry of either kind: the colour, or nothing where it has none that is one.
std::string entryColor(const nlohmann::ordered_json& entry);
/// The text under the key; nothing where the value is no object or holds no text there.
std::string textIn(const nlohmann::ordered_json& object, const char* key);

/// Understands the document of docs/engine.md. What it cannot use is left out and named in
/// `faults`; the rest counts. Any thread.
CustomLists readCustomLists(const nlohmann::ordered_json& document,
                            const QFCleanerLibrary::Cleaners& builtInCleaners);

/// The person's cleaners as functions by their tokens. Each may find and replace for 1 s in all.
QFCleanerLibrary::Cleaners makeCustomCleaners(const CustomLists& lists,
                                              const QFCleanerLibrary::Cleaners& builtInCleaners);

/// The tokens of those that have a step for which formatting goes.
QFCleanerLibrary::Tokens customFormattingRemovers(const CustomLists& lists,
                                                  const QFCleanerLibrary& library);

}  // namespace qf
