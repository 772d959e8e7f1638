// SPDX-License-Identifier: Apache-2.0
#include "foundation/DateText.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace qf {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days referenceDay{std::chrono::year(2001) / 1 / 1};
constexpr double secondsPerDay = 86400;

// Reads one number per run of 'd' in the pattern; every other character of the pattern must match
// the text.
template <std::size_t N>
bool match(std::string_view pattern, std::string_view text, int (&numbers)[N]) {
  if (text.size() != pattern.size()) return false;
  std::size_t part = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (pattern[i] != 'd') {
      if (text[i] != pattern[i]) return false;
      continue;
    }
    if (text[i] < '0' || text[i] > '9') return false;
    numbers[part] = numbers[part] * 10 + (text[i] - '0');
    if (i + 1 == text.size() || pattern[i + 1] != 'd') ++part;
  }
  return true;
}

std::optional<Date> dateFromParts(const int* parts) {
  const auto day = std::chrono::year(parts[0]) / parts[1] / parts[2];
  if (!day.ok() || parts[3] > 23 || parts[4] > 59 || parts[5] > 59) {
    return std::nullopt;
  }
  const auto days = (sys_days(day) - referenceDay).count();
  return Date{static_cast<double>(days) * secondsPerDay + parts[3] * 3600 + parts[4] * 60 +
              parts[5]};
}

}  // namespace

bool isStorableDate(Date date) { return std::abs(date.secondsSinceReferenceDate) <= 0x1p53; }

std::optional<std::string> iso8601(Date date) {
  if (!isStorableDate(date)) return std::nullopt;
  const auto seconds = static_cast<long long>(std::floor(date.secondsSinceReferenceDate));
  long long days = seconds / 86400;
  if (seconds % 86400 < 0) --days;
  const auto inDay = static_cast<int>(seconds - days * 86400);
  constexpr long long firstDay = (sys_days(std::chrono::year(1) / 1 / 1) - referenceDay).count();
  constexpr long long lastDay =
      (sys_days(std::chrono::year(9999) / 12 / 31) - referenceDay).count();
  if (days < firstDay || days > lastDay) return std::nullopt;
  const year_month_day day(referenceDay + std::chrono::days(days));
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()), inDay / 3600,
                inDay / 60 % 60, inDay % 60);
  return text;
}

std::optional<Date> dateFromISO8601(std::string_view text) {
  int parts[6] = {};
  if (!match("dddd-dd-ddTdd:dd:ddZ", text, parts)) return std::nullopt;
  return dateFromParts(parts);
}

std::optional<Date> dateFromGNUstep(std::string_view text) {
  int parts[8] = {};
  const bool east = match("dddd-dd-dd dd:dd:dd +dddd", text, parts);
  if (!east) {
    std::fill(std::begin(parts), std::end(parts), 0);
    if (!match("dddd-dd-dd dd:dd:dd -dddd", text, parts)) return std::nullopt;
  }
  const int zone = (parts[6] / 100 * 60 + parts[6] % 100) * 60;
  auto date = dateFromParts(parts);
  if (date) date->secondsSinceReferenceDate += east ? -zone : zone;
  return date;
}

}  // namespace qf
