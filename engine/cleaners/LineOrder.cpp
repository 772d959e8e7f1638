// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/LineOrder.h"

#include <algorithm>
#include <vector>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

UCollationResult compare(const icu::Collator& collator, std::string_view a, std::string_view b) {
  const auto piece = [](std::string_view text) {
    return icu::StringPiece(text.data(), static_cast<int32_t>(text.size()));
  };
  UErrorCode status = U_ZERO_ERROR;
  return collator.compareUTF8(piece(a), piece(b), status);
}

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

/// ICU takes digits beyond this for another number.
constexpr std::size_t mostDigits = 200;

/// The digits at the position less leading zeros; moves behind them.
std::string_view numberAt(std::string_view text, std::size_t& position) {
  const std::size_t start = position;
  while (position < text.size() && isASCIIDigit(text[position])) ++position;
  std::string_view digits = text.substr(start, position - start);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

}  // namespace

Result<LineOrder> LineOrder::make() {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(
      icu::Collator::createInstance(icu::Locale::getRoot(), status));
  if (U_FAILURE(status)) return Error{"the rules for sorting are missing on this machine"};
  return LineOrder(std::move(collator));
}

LineOrder::LineOrder(std::unique_ptr<icu::Collator> collator) : _collator(std::move(collator)) {
  std::vector<char> characters;
  for (char character = 0x20; character < 0x7F; ++character) characters.push_back(character);
  _collator->setStrength(icu::Collator::PRIMARY);
  const auto order = [this](char a, char b) {
    return compare(*_collator, std::string_view(&a, 1), std::string_view(&b, 1));
  };
  std::sort(characters.begin(), characters.end(),
            [&](char a, char b) { return order(a, b) == UCOL_LESS; });
  std::uint8_t rank = 1;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    const bool isSame =
        i > 0 && ((isASCIIDigit(characters[i]) && isASCIIDigit(characters[i - 1])) ||
                  order(characters[i - 1], characters[i]) == UCOL_EQUAL);
    if (i > 0 && !isSame) ++rank;
    _ranks[static_cast<unsigned char>(characters[i])] = rank;
  }
  UErrorCode status = U_ZERO_ERROR;
  _collator->setStrength(icu::Collator::TERTIARY);
  _collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
}

LineOrder::Line LineOrder::line(std::string_view text) const {
  Line line{text, isPlain(text)};
  if (!line.isPlain) return line;
  constexpr unsigned places = sizeof line.beginning;
  while (line.known < places) {
    const std::size_t place = line.known++;
    const auto rank = place < text.size() ? _ranks[static_cast<unsigned char>(text[place])] : 0;
    line.beginning |= std::uint64_t{static_cast<std::uint8_t>(rank)} << (8 * (places - 1 - place));
    if (place < text.size() && isASCIIDigit(text[place])) break;  // the number decides from here on
  }
  return line;
}

bool LineOrder::isLess(const Line& a, const Line& b) const {
  if (a.isPlain && b.isPlain) {
    const unsigned unknown = 8 * (8 - std::min(a.known, b.known));
    const std::uint64_t first = a.beginning >> unknown, second = b.beginning >> unknown;
    if (first != second) return first < second;
    if (const int order = comparePlain(a.text, b.text)) return order < 0;
  }
  const UCollationResult order = compare(*_collator, a.text, b.text);
  return order == UCOL_EQUAL ? a.text < b.text : order == UCOL_LESS;
}

/// By letters and numbers alone; 0 where these tell nothing.
int LineOrder::comparePlain(std::string_view a, std::string_view b) const {
  std::size_t i = 0, k = 0;
  while (i < a.size() && k < b.size()) {
    if (isASCIIDigit(a[i]) && isASCIIDigit(b[k])) {
      const std::string_view first = numberAt(a, i), second = numberAt(b, k);
      if (std::max(first.size(), second.size()) > mostDigits) return 0;
      if (first.size() != second.size()) return first.size() < second.size() ? -1 : 1;
      if (const int order = first.compare(second)) return order;
    } else {
      const int order =
          _ranks[static_cast<unsigned char>(a[i++])] - _ranks[static_cast<unsigned char>(b[k++])];
      if (order != 0) return order;
    }
  }
  return i < a.size() ? 1 : k < b.size() ? -1 : 0;
}

}  // namespace qf
