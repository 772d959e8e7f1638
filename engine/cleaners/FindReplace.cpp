// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/FindReplace.h"

#include <unicode/regex.h>

#include <memory>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t largestResult = std::size_t{256} << 20;

UBool goesOn(const void* context, int32_t) {
  return Clock::now() < *static_cast<const Deadline*>(context);
}
UBool findGoesOn(const void* context, int64_t) { return goesOn(context, 0); }

Error failure(UErrorCode status) {
  switch (status) {
    case U_REGEX_STOPPED_BY_CALLER:
    case U_REGEX_TIME_OUT:
      return {"finding took too long"};
    case U_REGEX_STACK_OVERFLOW:
      return {"finding took too much memory"};
    case U_INDEX_OUTOFBOUNDS_ERROR:
    case U_REGEX_INVALID_CAPTURE_GROUP_NAME:
      return {"the replacement names a group that the expression has not"};
    default:
      return {std::string("finding failed: ") + u_errorName(status)};
  }
}

Result<std::string> replaceMatches(const icu::RegexPattern& pattern,
                                   const icu::UnicodeString& replacement, std::string_view text,
                                   Deadline deadline) {
  const icu::UnicodeString input = unicodeString(text);
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::RegexMatcher> matcher(pattern.matcher(input, status));
  if (U_FAILURE(status)) return failure(status);
  matcher->setMatchCallback(goesOn, &deadline, status);
  matcher->setFindProgressCallback(findGoesOn, &deadline, status);
  icu::UnicodeString result;
  while (U_SUCCESS(status) && matcher->find(status)) {
    matcher->appendReplacement(result, replacement, status);
    if (Clock::now() >= deadline) status = U_REGEX_TIME_OUT;
    if (static_cast<std::size_t>(result.length()) > largestResult / 3) {
      return Error{"the result is too large"};
    }
  }
  if (U_FAILURE(status)) return failure(status);
  matcher->appendTail(result);
  return utf8String(result);
}

/// In a replacement these two characters mean something.
std::string literalReplacement(std::string_view text) {
  return replacedAll(replacedAll(text, "\\", "\\\\"), "$", "\\$");
}

Replacer plainReplacer(const FindReplace& step) {
  return [step](std::string_view text, Deadline) -> Result<std::string> {
    std::size_t finds = 0;
    for (std::size_t at = text.find(step.find); at != std::string_view::npos; ++finds) {
      at = text.find(step.find, at + step.find.size());
    }
    if (text.size() + finds * step.replace.size() > largestResult) {
      return Error{"the result is too large"};
    }
    return replacedAll(text, step.find, step.replace);
  };
}

struct Compiled {
  std::shared_ptr<icu::RegexPattern> pattern;
  std::optional<ExpressionFault> fault;
};

Compiled compile(const FindReplace& step) {
  const std::uint32_t flags =
      (step.ignoresCase ? UREGEX_CASE_INSENSITIVE : 0) |
      (step.isRegularExpression ? UREGEX_MULTILINE | UREGEX_ERROR_ON_UNKNOWN_ESCAPES
                                : UREGEX_LITERAL);
  UErrorCode status = U_ZERO_ERROR;
  UParseError place = {};
  Compiled result;
  result.pattern.reset(icu::RegexPattern::compile(unicodeString(step.find), flags, place, status));
  if (U_FAILURE(status)) result.fault = ExpressionFault{place.offset, u_errorName(status)};
  return result;
}

}  // namespace

std::optional<ExpressionFault> expressionFault(const FindReplace& step) {
  return step.isRegularExpression ? compile(step).fault : std::nullopt;
}

Result<Replacer> makeReplacer(const FindReplace& step) {
  if (step.find.empty()) return Error{"there is nothing to find"};
  if (!step.isRegularExpression && !step.ignoresCase) return plainReplacer(step);
  const auto [pattern, fault] = compile(step);
  if (fault) {
    return Error{"the expression is wrong at character " + std::to_string(fault->character) + " (" +
                 fault->code + ")"};
  }
  const icu::UnicodeString replacement =
      unicodeString(step.isRegularExpression ? step.replace : literalReplacement(step.replace));
  return Replacer([pattern = pattern, replacement](std::string_view text, Deadline deadline) {
    return replaceMatches(*pattern, replacement, text, deadline);
  });
}

}  // namespace qf
