// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/CleanerWithArgument.h"

#include <charconv>

#include "engine/cleaners/Paragraphs.h"
#include "engine/cleaners/TextLines.h"
#include "foundation/Text.h"

namespace qf {
namespace {

std::optional<std::string_view> argument(std::string_view token, std::string_view prefix) {
  if (!token.starts_with(prefix) || token.size() == prefix.size()) return std::nullopt;
  return token.substr(prefix.size());
}

std::optional<std::size_t> width(std::string_view digits) {
  constexpr std::size_t least = 8, most = 9999;
  std::size_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stop != end || value < least || value > most) return std::nullopt;
  return value;
}

enum class Lines { kept, removed };

CleanerFunction filter(std::string_view words, Lines lines) {
  return [words = lowercased(words), lines](std::string_view text) -> Result<std::string> {
    std::string result;
    bool found = false;
    for (const TextLine& line : textLines(text)) {
      const bool has = lowercased(line.text).find(words) != std::string::npos;
      found = found || has;
      if (has == (lines == Lines::kept)) result.append(line.text).append(line.ending);
    }
    if (!found) return Error{"no line has \"" + words + "\" in it"};
    return result;
  };
}

}  // namespace

std::optional<CleanerFunction> cleanerWithArgument(std::string_view token) {
  if (const auto digits = argument(token, "#WRAP-")) {
    const auto columns = width(*digits);
    if (!columns) return std::nullopt;
    return
        [columns](std::string_view text) -> Result<std::string> { return wrapped(text, *columns); };
  }
  if (const auto words = argument(token, "#KEEP-LINES:")) return filter(*words, Lines::kept);
  if (const auto words = argument(token, "#REMOVE-LINES:")) return filter(*words, Lines::removed);
  return std::nullopt;
}

}  // namespace qf
