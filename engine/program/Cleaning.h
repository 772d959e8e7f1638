// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/linux/bus/EventHints.h"

namespace qf {

/// What became of a pasteboard that was to be cleaned.
struct Cleaning {
  using Outcome = AnswerHints::Outcome;

  Outcome outcome = Outcome::refused;
  /// `Pasteboard::contentsIdentifier` of what was put there.
  std::optional<std::string> contents = {};
  /// Why it was left alone. Empty where there is nothing to tell.
  std::string reason = {};
};

/// What a person reads where a cleaner left a text as it was: "Trim: why. The text was ...".
std::string refusalText(std::string_view cleanerName, std::string_view reason);
/// The same for a reason that names the cleaner already.
std::string leftAsItWas(std::string_view reason);

}  // namespace qf
