// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Result.h"

namespace qf {

/// Changes a text: valid UTF-8 in, valid UTF-8 out. Keeps no state, so any thread may call it.
/// Fails, in words for the log, where the text is not what the cleaner is for (JSON that is none);
/// the text then stays as it was.
using CleanerFunction = std::function<Result<std::string>(std::string_view text)>;

/// What a cleaner has to see at once. A long text goes through one of lines in pieces.
enum class CleanerScope { text, line };

/// A built-in cleaner under the token that lists and commands name it by.
struct Cleaner {
  std::string_view token;
  CleanerFunction clean;
  CleanerScope scope = CleanerScope::text;
  /// Whether it is applied for this, and so counts also where the text itself stays.
  bool removesFormatting = false;
};

using CleanerTable = std::vector<Cleaner>;

// The built-in cleaners by theme, one file each.
CleanerTable whiteSpaceCleaners();
CleanerTable lineCleaners();
CleanerTable mailCleaners();
CleanerTable punctuationCleaners();
CleanerTable letterCaseCleaners();
CleanerTable unicodeCleaners();
CleanerTable webCleaners();
CleanerTable extractCleaners();
CleanerTable dataCleaners();
CleanerTable styleCleaners();

}  // namespace qf
