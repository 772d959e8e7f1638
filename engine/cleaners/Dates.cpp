// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Dates.h"

#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

/// The names of months, long and short, of these languages, in small letters and without stops.
const std::map<std::string, int, std::less<>>& months() {
  static const auto names = [] {
    std::map<std::string, int, std::less<>> result;
    for (const char* language : {"en", "de", "fr", "es", "it", "pt", "nl", "pl", "sv", "da"}) {
      UErrorCode status = U_ZERO_ERROR;
      const icu::DateFormatSymbols symbols(icu::Locale(language), status);
      if (U_FAILURE(status)) continue;
      for (const auto context :
           {icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::STANDALONE}) {
        for (const auto width :
             {icu::DateFormatSymbols::WIDE, icu::DateFormatSymbols::ABBREVIATED}) {
          int32_t count = 0;
          const icu::UnicodeString* list = symbols.getMonths(count, context, width);
          for (int32_t month = 0; month < count; ++month) {
            std::string name = lowercased(utf8String(list[month]));
            if (name.ends_with('.')) name.pop_back();
            if (isLetter(codePoints(name)[0])) result.emplace(name, month + 1);
          }
        }
      }
    }
    result.emplace("sept", 9);
    return result;
  }();
  return names;
}

bool isDayOf(int year, int month, int day) {
  constexpr std::array lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1) return false;
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return day <= lengths[static_cast<std::size_t>(month - 1)] + (month == 2 && leap);
}

/// Reads parts of a date one after the other.
class DateReader {
 public:
  DateReader(std::string_view text, std::size_t position) : _text(text), _position(position) {}

  std::size_t position() const { return _position; }

  /// A number of so many digits that no other digit follows.
  std::optional<int> number(std::size_t fewest, std::size_t most) {
    std::size_t end = _position;
    int value = 0;
    while (end < _text.size() && isASCIIDigit(_text[end]) && end - _position < most) {
      value = value * 10 + (_text[end++] - '0');
    }
    const bool goesOn = end < _text.size() && isASCIIDigit(_text[end]);
    if (end - _position < fewest || goesOn) return std::nullopt;
    _position = end;
    return value;
  }

  bool takes(std::string_view piece) {
    if (!_text.substr(_position).starts_with(piece)) return false;
    _position += piece.size();
    return true;
  }

  /// Any of them, or nothing.
  void takesAny(std::initializer_list<std::string_view> pieces) {
    for (const std::string_view piece : pieces) {
      if (takes(piece)) return;
    }
  }

  /// Whether a word stands here with a number behind: reading names takes longer.
  bool isWordBeforeNumber() const {
    std::size_t end = _position;
    constexpr std::size_t longest = 24;
    while (end < _text.size() && end - _position < longest && _text[end] != ' ') {
      ++end;
    }
    return end + 1 < _text.size() && _text[end] == ' ' && isASCIIDigit(_text[end + 1]);
  }

  std::optional<int> monthName() {
    constexpr std::size_t longest = 24;
    std::size_t end = _position;
    for (std::size_t next = end; next < _text.size() && next - _position < longest; end = next) {
      if (!isLetter(nextCodePoint(_text, next))) break;
    }
    const auto found = months().find(lowercased(_text.substr(_position, end - _position)));
    if (found == months().end()) return std::nullopt;
    _position = end;
    takes(".");
    return found->second;
  }

 private:
  std::string_view _text;
  std::size_t _position;
};

/// Which number of "5/3/2024" is the month.
enum class SlashOrder { unknown, monthFirst, dayFirst };

struct Reading {
  WrittenDate date;
  int first = 0, second = 0;  ///< of one with slashes whose order is open
};

/// "3 May 2024", "3rd of May, 2024", "3. Mai 2024", "3 de mayo de 2024".
std::optional<Reading> dayFirst(DateReader reader, std::size_t start) {
  const auto day = reader.number(1, 2);
  if (!day) return std::nullopt;
  reader.takesAny({"st", "nd", "rd", "th", "er", "º", "."});
  if (!reader.takes(" ") && !reader.takes("\u00A0") && !reader.takes("-")) return std::nullopt;
  reader.takesAny({"of ", "de "});
  const auto month = reader.monthName();
  if (!month) return std::nullopt;
  reader.takesAny({", ", " de ", " ", "-", "\u00A0"});
  const auto year = reader.number(4, 4);
  if (!year) return std::nullopt;
  return Reading{{{start, reader.position() - start}, *year, *month, *day}};
}

/// "May 3, 2024", "May 3rd 2024".
std::optional<Reading> monthFirst(DateReader reader, std::size_t start) {
  if (!reader.isWordBeforeNumber()) return std::nullopt;
  const auto month = reader.monthName();
  if (!month || !reader.takes(" ")) return std::nullopt;
  const auto day = reader.number(1, 2);
  if (!day) return std::nullopt;
  reader.takesAny({"st", "nd", "rd", "th"});
  if (!reader.takes(", ") && !reader.takes(" ") && !reader.takes(",")) return std::nullopt;
  const auto year = reader.number(4, 4);
  if (!year) return std::nullopt;
  return Reading{{{start, reader.position() - start}, *year, *month, *day}};
}

/// "2024/5/3", "2024.05.03", "2024-5-3".
std::optional<Reading> yearFirst(DateReader reader, std::size_t start) {
  const auto year = reader.number(4, 4);
  if (!year) return std::nullopt;
  const std::string_view mark = reader.takes("/") ? "/" : reader.takes(".") ? "." : "-";
  if (mark == "-" && !reader.takes("-")) return std::nullopt;
  const auto month = reader.number(1, 2);
  if (!month || !reader.takes(mark)) return std::nullopt;
  const auto day = reader.number(1, 2);
  if (!day) return std::nullopt;
  return Reading{{{start, reader.position() - start}, *year, *month, *day}};
}

/// "3.5.2024" has the day first everywhere; "5/3/2024" depends.
std::optional<Reading> yearLast(DateReader reader, std::size_t start) {
  const auto first = reader.number(1, 2);
  if (!first) return std::nullopt;
  const bool slash = reader.takes("/");
  const std::string_view mark = slash ? "/" : ".";
  if (!slash && !reader.takes(mark)) return std::nullopt;
  if (!slash) reader.takes(" ");
  const auto second = reader.number(1, 2);
  if (!second || !reader.takes(mark)) return std::nullopt;
  if (!slash) reader.takes(" ");
  const auto year = reader.number(4, 4);
  if (!year) return std::nullopt;
  Reading reading{{{start, reader.position() - start}, *year, *second, *first}};
  if (slash) reading.first = *first, reading.second = *second;
  return reading;
}

/// A date does not begin inside a word, a number, or an address.
bool mayBegin(std::string_view text, std::size_t position) {
  if (position == 0) return true;
  const char before = text[position - 1];
  return !isASCIILetter(before) && !isASCIIDigit(before) &&
         std::string_view("/.-_=#+").find(before) == std::string_view::npos &&
         static_cast<unsigned char>(before) < 0x80;
}

bool mayEnd(std::string_view text, std::size_t position) {
  if (position >= text.size()) return true;
  const char next = text[position];
  const bool goesOn = position + 1 < text.size() && isASCIIDigit(text[position + 1]) &&
                      std::string_view("/.-").find(next) != std::string_view::npos;
  return !isASCIILetter(next) && !goesOn && next != '/';
}

/// Behind the letters or the one other character that stand here.
std::size_t endOfWord(std::string_view text, std::size_t position) {
  std::size_t end = position;
  while (end < text.size() && isASCIILetter(text[end])) ++end;
  return std::max(end, position + 1);
}

SlashOrder orderOf(const std::vector<Reading>& readings) {
  bool month = false, day = false;
  for (const Reading& reading : readings) {
    month = month || reading.second > 12;
    day = day || reading.first > 12;
  }
  if (month == day) return SlashOrder::unknown;
  return month ? SlashOrder::monthFirst : SlashOrder::dayFirst;
}

std::vector<Reading> readDates(std::string_view text) {
  std::vector<Reading> readings;
  for (std::size_t position = 0; position < text.size();) {
    const char character = text[position];
    std::optional<Reading> reading;
    if ((isASCIIDigit(character) || isASCIILetter(character)) && mayBegin(text, position)) {
      for (const auto read : {dayFirst, monthFirst, yearFirst, yearLast}) {
        reading = read({text, position}, position);
        if (reading && !mayEnd(text, position + reading->date.place.length)) reading.reset();
        if (reading) break;
      }
    }
    if (reading) readings.push_back(*reading);
    if (reading) {
      position += reading->date.place.length;
    } else {
      position = endOfWord(text, position);
    }
  }
  return readings;
}

}  // namespace

std::vector<WrittenDate> findDates(std::string_view text) {
  const std::vector<Reading> readings = readDates(text);
  const SlashOrder order = orderOf(readings);
  std::vector<WrittenDate> dates;
  for (const Reading& reading : readings) {
    WrittenDate date = reading.date;
    if (reading.first > 0) {
      const bool isOpen = reading.first <= 12 && reading.second <= 12;
      if (isOpen && order == SlashOrder::unknown && reading.first != reading.second) continue;
      const bool monthFirst = isOpen ? order == SlashOrder::monthFirst : reading.second > 12;
      date.month = monthFirst ? reading.first : reading.second;
      date.day = monthFirst ? reading.second : reading.first;
    }
    if (isDayOf(date.year, date.month, date.day)) dates.push_back(date);
  }
  return dates;
}

std::string isoDate(const WrittenDate& date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year, date.month, date.day);
  return text;
}

}  // namespace qf
