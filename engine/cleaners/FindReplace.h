// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

struct FindReplace {
  std::string find;
  std::string replace;
  bool isRegularExpression = false;
  bool ignoresCase = false;
};

using Deadline = std::chrono::steady_clock::time_point;

/// Replaces every find in a text of valid UTF-8. Fails, in words for the log, when the deadline
/// passes or the result grows beyond 256 MiB. Any thread.
using Replacer = std::function<Result<std::string>(std::string_view text, Deadline deadline)>;

/// A regular expression is one of ICU's: "^" and "$" stand for the ends of lines, "$1" in the
/// replacement for what the first group caught. Fails for an expression that is none, and for
/// nothing to find.
Result<Replacer> makeReplacer(const FindReplace& step);

}  // namespace qf
