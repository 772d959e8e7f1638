// SPDX-License-Identifier: Apache-2.0
// Finds things in a text and answers them one a line (where there are none it fails), or writes
// them differently.
#include <algorithm>
#include <unordered_set>
#include <vector>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Dates.h"
#include "engine/cleaners/PhoneNumbers.h"
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

Result<std::string> extractPhoneNumbers(std::string_view text) {
  Finds finds;
  for (const PhoneNumber& number : findPhoneNumbers(text)) {
    finds.add(text.substr(number.place.start, number.place.length));
  }
  return findsOr("there is no telephone number in the text", std::move(finds).lines());
}

/// Groups of two digits or more with hyphens, blanks or brackets between them, as telephone numbers
/// are written that begin with "+", "0" or "(", and with hyphens only any other: the length, or 0.
std::size_t groupedLength(std::string_view text) {
  constexpr std::size_t fewestDigits = 7;
  constexpr std::string_view marks = "-()/ ";
  const bool dials = text[0] == '+' || text[0] == '0' || text[0] == '(';
  std::size_t digits = 0, group = 0, groups = 1, end = 0;
  for (std::size_t i = text[0] == '+' || text[0] == '(' ? 1 : 0; i < text.size(); ++i) {
    if (isASCIIDigit(text[i])) {
      ++digits, ++group;
      end = i + 1;
      continue;
    }
    if (marks.find(text[i]) == std::string_view::npos || (!dials && text[i] != '-')) break;
    if (group == 1) return 0;
    groups += group > 0;
    group = 0;
  }
  return digits >= fewestDigits && group != 1 && groups > (dials ? 1 : 2) ? end : 0;
}

/// What has digits and is no number: dates and telephone numbers, in their order.
std::vector<TextPart> notNumbers(std::string_view text) {
  std::vector<TextPart> parts;
  for (const WrittenDate& date : findDates(text)) parts.push_back(date.place);
  for (const PhoneNumber& number : findPhoneNumbers(text)) parts.push_back(number.place);
  std::sort(parts.begin(), parts.end(),
            [](const TextPart& a, const TextPart& b) { return a.start < b.start; });
  return parts;
}

/// Digits with the separators between them and a sign before: "-1,234.5".
Result<std::string> extractNumbers(std::string_view text) {
  const std::vector<TextPart> others = notNumbers(text);
  auto other = others.begin();
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = text.find_first_of("+(0123456789", position);
    if (start == std::string_view::npos) break;
    while (other != others.end() && other->start + other->length <= start) ++other;
    const bool isOther = other != others.end() && other->start <= start;
    const std::size_t skipped =
        isOther ? other->start + other->length - start : groupedLength(text.substr(start, 40));
    if (skipped > 0 || !isASCIIDigit(text[start])) {
      position = start + std::max<std::size_t>(skipped, 1);
      continue;
    }
    std::size_t end = start;
    while (end < text.size() &&
           (isASCIIDigit(text[end]) || ((text[end] == '.' || text[end] == ',') &&
                                        end + 1 < text.size() && isASCIIDigit(text[end + 1])))) {
      ++end;
    }
    const bool signs = start > 0 && (text[start - 1] == '-' || text[start - 1] == '+');
    const bool isSign = signs && (start < 2 || text[start - 2] == ' ' || text[start - 2] == '\n' ||
                                  text[start - 2] == '(' || text[start - 2] == '\t');
    result.append(text.substr(start - isSign, end - start + isSign)).push_back('\n');
    position = end;
  }
  return findsOr("there is no number in the text", std::move(result));
}

/// Numbers as they are dialled from anywhere, "+49 30 1234567".
std::string formatPhoneNumbers(std::string_view text) {
  std::string result;
  std::size_t position = 0;
  for (const PhoneNumber& number : findPhoneNumbers(text)) {
    result.append(text.substr(position, number.place.start - position));
    result.append(number.international);
    position = number.place.start + number.place.length;
  }
  return result.append(text.substr(position));
}

std::string datesToISO(std::string_view text) {
  std::string result;
  std::size_t position = 0;
  for (const WrittenDate& date : findDates(text)) {
    result.append(text.substr(position, date.place.start - position)).append(isoDate(date));
    position = date.place.start + date.place.length;
  }
  return result.append(text.substr(position));
}

/// What stood around an address that is gone: brackets of Markdown and mail, a blank, a line.
void closeGap(std::string& before, std::string_view& after) {
  if (before.ends_with("](") && after.starts_with(')')) {
    before.resize(before.size() - 2);  // the words of a link stay
    if (const std::size_t open = before.rfind('['); open != std::string::npos)
      before.erase(open, 1);
    after.remove_prefix(1);
    return;
  }
  const bool inBrackets = (before.ends_with('<') && after.starts_with('>')) ||
                          (before.ends_with('(') && after.starts_with(')'));
  if (inBrackets) {
    before.pop_back();
    after.remove_prefix(1);
  }
  const bool atStart = before.empty() || before.ends_with('\n');
  const bool atEnd = after.empty() || after[0] == '\n' || after[0] == '\r';
  if (atStart && atEnd) {
    after.remove_prefix(after.starts_with("\r\n") ? 2 : !after.empty());
  } else if (after.starts_with(' ') && (atStart || before.ends_with(' '))) {
    after.remove_prefix(1);
  } else if (before.ends_with(' ') &&
             (atEnd || std::string_view(".,;:!?)").find(after[0]) != std::string_view::npos)) {
    before.pop_back();
  }
}

std::string removeWebAddresses(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const TextPart part = findWebAddress(text, 0);
    result.append(text.substr(0, part.start));
    text.remove_prefix(part.start + part.length);
    if (part.length > 0) closeGap(result, text);
  }
  return result;
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
      {"#EXTRACT-PHONE-NUMBERS", extractPhoneNumbers},
      {"#FORMAT-PHONE-NUMBERS", formatPhoneNumbers},
      {"#DATES-TO-ISO", datesToISO},
      {"#REMOVE-TRACKING", removeTracking, CleanerScope::line},
      {"#REMOVE-URLS", removeWebAddresses},
  };
}

}  // namespace qf
