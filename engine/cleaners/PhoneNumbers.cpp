// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/PhoneNumbers.h"

#include <phonenumbers/phonenumbermatch.h>
#include <phonenumbers/phonenumbermatcher.h>
#include <phonenumbers/phonenumberutil.h>
#include <unicode/locid.h>

#include <algorithm>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

namespace library = i18n::phonenumbers;

std::string personsRegion() {
  const std::string region = icu::Locale::getDefault().getCountry();
  return region.size() == 2 ? region : "ZZ";
}

/// The library looks at each digit of what it is given: lines without enough of them are not.
bool mayHoldNumber(std::string_view line) {
  constexpr std::ptrdiff_t fewestDigits = 5;
  return std::count_if(line.begin(), line.end(), isASCIIDigit) >= fewestDigits;
}

}  // namespace

std::vector<PhoneNumber> findPhoneNumbers(std::string_view text) {
  static const std::string region = personsRegion();
  // Beyond this a line is no text of a person, and looking through it takes too long.
  constexpr std::size_t longestLine = 10'000;
  const library::PhoneNumberUtil& util = *library::PhoneNumberUtil::GetInstance();
  std::vector<PhoneNumber> found;
  for (const TextLine& line : textLines(text)) {
    if (line.text.size() > longestLine || !mayHoldNumber(line.text)) continue;
    const std::string words(line.text);
    library::PhoneNumberMatcher matcher(util, words, region, library::PhoneNumberMatcher::VALID,
                                        100);
    library::PhoneNumberMatch match;
    const auto lineStart = static_cast<std::size_t>(line.text.data() - text.data());
    std::size_t end = 0;
    while (matcher.HasNext() && matcher.Next(&match)) {
      const std::size_t start = words.find(match.raw_string(), end);
      if (start == std::string::npos) continue;
      end = start + match.raw_string().size();
      PhoneNumber number;
      number.place = {lineStart + start, end - start};
      util.Format(match.number(), library::PhoneNumberUtil::INTERNATIONAL, &number.international);
      found.push_back(std::move(number));
    }
  }
  return found;
}

}  // namespace qf
