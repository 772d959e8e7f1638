// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/cleaners/TextPart.h"

namespace qf {

struct WrittenDate {
  TextPart place;
  int year = 0;  ///< with its century
  int month = 0;
  int day = 0;
};

/// The dates in a text that have a day, a month and a year of four digits, in their order: in
/// numbers ("3.5.2024", "2024/5/3", "5/3/2024"), or with the month's name in one of several
/// European languages. Where slashes leave open which is the month, the other dates of the text
/// decide; where none does, the date is not among them.
std::vector<WrittenDate> findDates(std::string_view text);

/// ISO 8601: "2024-05-03".
std::string isoDate(const WrittenDate& date);

}  // namespace qf
