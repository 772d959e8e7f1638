// SPDX-License-Identifier: Apache-2.0
// Finds things in a text and answers them one a line; fails where there are none.
#include <unordered_set>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Tracking.h"
#include "engine/cleaners/WebAddress.h"

namespace qf {
namespace {

/// Where there are none the text stays: an empty one in its place is never what was wanted.
Result<std::string> findsOr(const char* reason, std::string lines) {
  if (lines.empty()) return Error{reason};
  return lines;
}

/// One a line, each once, in the order in which they came.
class Finds {
 public:
  void add(std::string_view find) {
    if (!_seen.insert(find).second) return;
    _lines.append(find).push_back('\n');
  }
  std::string lines() && { return std::move(_lines); }

 private:
  std::unordered_set<std::string_view> _seen;
  std::string _lines;
};

Result<std::string> extractWebAddresses(std::string_view text) {
  Finds finds;
  for (std::size_t position = 0; position < text.size();) {
    const TextPart part = findWebAddress(text, position);
    if (part.length > 0) finds.add(text.substr(part.start, part.length));
    position = part.start + part.length;
  }
  return findsOr("there is no web address in the text", std::move(finds).lines());
}

bool isLocalCharacter(char character) {
  return isASCIILetter(character) || isASCIIDigit(character) ||
         std::string_view(".!#$%&'*+/=?^_`{|}~-").find(character) != std::string_view::npos;
}

bool isHostCharacter(char character) {
  return isASCIILetter(character) || isASCIIDigit(character) || character == '.' ||
         character == '-' || static_cast<unsigned char>(character) >= 0x80;
}

/// Parts longer than RFC 5321 allows belong to no address.
constexpr std::size_t longestLocalPart = 64;
constexpr std::size_t longestHost = 255;

Result<std::string> extractMailAddresses(std::string_view text) {
  Finds finds;
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1)) {
    std::size_t start = at;
    while (start > 0 && at - start < longestLocalPart && isLocalCharacter(text[start - 1])) --start;
    while (start < at && (text[start] == '.' || text[start] == '\'')) ++start;
    std::size_t end = at + 1;
    while (end < text.size() && end - at <= longestHost && isHostCharacter(text[end])) ++end;
    while (end > at + 1 && (text[end - 1] == '.' || text[end - 1] == '-')) --end;
    const std::string_view host = text.substr(at + 1, end - at - 1);
    const std::size_t dot = host.rfind('.');
    const bool named = dot != std::string_view::npos && dot > 0 && host.size() - dot > 2;
    if (start < at && named && isValidUTF8(host)) finds.add(text.substr(start, end - start));
  }
  return findsOr("there is no e-mail address in the text", std::move(finds).lines());
}

/// Digits with the separators between them and a sign before: "-1,234.5". A time or a date in dots
/// comes as one.
Result<std::string> extractNumbers(std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = text.find_first_of("0123456789", position);
    if (start == std::string_view::npos) break;
    std::size_t end = start;
    while (end < text.size() &&
           (isASCIIDigit(text[end]) || ((text[end] == '.' || text[end] == ',') &&
                                        end + 1 < text.size() && isASCIIDigit(text[end + 1])))) {
      ++end;
    }
    const bool signs = start > position && (text[start - 1] == '-' || text[start - 1] == '+');
    const bool isSign = signs && (start < 2 || text[start - 2] == ' ' || text[start - 2] == '\n' ||
                                  text[start - 2] == '(' || text[start - 2] == '\t');
    result.append(text.substr(start - isSign, end - start + isSign)).push_back('\n');
    position = end;
  }
  return findsOr("there is no number in the text", std::move(result));
}

std::string removeTracking(std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const TextPart part = findWebAddress(text, position);
    result.append(text.substr(position, part.start - position));
    result.append(withoutTracking(text.substr(part.start, part.length)));
    position = part.start + part.length;
  }
  return result;
}

}  // namespace

CleanerTable extractCleaners() {
  return {
      {"#EXTRACT-URLS", extractWebAddresses},
      {"#EXTRACT-MAIL-ADDRESSES", extractMailAddresses},
      {"#EXTRACT-NUMBERS", extractNumbers},
      {"#REMOVE-TRACKING", removeTracking},
  };
}

}  // namespace qf
