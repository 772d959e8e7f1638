// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

struct FindReplace {
  std::string find;
  std::string replace;
  bool isRegularExpression = false;
  bool ignoresCase = false;
  bool operator==(const FindReplace&) const = default;
};

/// Where and why an expression is none.
struct ExpressionFault {
  int character;     ///< how many come before the place
  std::string code;  ///< ICU's name of the fault, as "U_REGEX_MISMATCHED_PAREN"
};
/// Of a step that finds by an expression; nothing when the expression is one.
std::optional<ExpressionFault> expressionFault(const FindReplace& step);

using Deadline = std::chrono::steady_clock::time_point;

/// Replaces every find in a text of valid UTF-8. Fails, in words for the log, when the deadline
/// passes or the result grows beyond 256 MiB. Any thread.
using Replacer = std::function<Result<std::string>(std::string_view text, Deadline deadline)>;

/// A regular expression is one of ICU's: "^" and "$" stand for the ends of lines, "$1" in the
/// replacement for what the first group caught. Fails for an expression that is none, and for
/// nothing to find.
Result<Replacer> makeReplacer(const FindReplace& step);

}  // namespace qf
