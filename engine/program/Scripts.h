// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

class CleanerChain;
class FileManager;

// The engine's services for scripts, carried out in this process. Each answers the exit code: 0
// when everything was done, 1 when something was left as it was (the log says why).

/// One line a cleaner: its token, a tab, its name.
int listCleaners(const Dictionary& listData, std::ostream& out);
/// The same as an array of JSON objects, with the description and the names of the groups of each.
int listCleanersAsJSON(const Dictionary& listData, std::ostream& out);

/// All of the input, cleaned, to the output; as it was when a cleaner cannot take it. In the
/// encoding (UTF-8 where none is given, and then bytes that are none become U+FFFD). Cleaners that
/// work line by line get it in pieces of about 1 MiB, whatever its size: one of them that fails
/// leaves its piece and all behind it.
int cleanStream(const CleanerChain& chain, std::string_view encoding, std::istream& in,
                std::ostream& out);

/// The files one after the other to the output; one that cannot be cleaned is left out.
int cleanFilesTo(std::ostream& out, const CleanerChain& chain, const FileManager& fileManager,
                 std::string_view encoding, std::span<const std::string> paths);

/// Each file in place, so many at a time.
int cleanFilesInPlace(const CleanerChain& chain, const FileManager& fileManager,
                      std::string_view encoding, std::span<const std::string> paths, unsigned jobs);

}  // namespace qf
