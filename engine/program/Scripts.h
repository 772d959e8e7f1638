// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

class FileManager;
class QFCleanerLibrary;

// The engine's services for scripts, carried out in this process. Each answers the exit code: 0
// when everything was done, 1 when something was left as it was (the log says why).

/// One line a cleaner: its token, a tab, its name.
int listCleaners(const Dictionary& listData, std::ostream& out);

/// All of the input, cleaned, to the output; as it was when the cleaner cannot take it.
int cleanStream(const QFCleanerLibrary& library, std::string_view token, const Dictionary& listData,
                std::istream& in, std::ostream& out);

/// Each file in place.
int cleanFiles(const QFCleanerLibrary& library, const FileManager& fileManager,
               std::string_view token, std::span<const std::string> paths);

}  // namespace qf
