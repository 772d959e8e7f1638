// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/WebAddress.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

constexpr std::array<std::string_view, 4> starts = {"http://", "https://", "ftp://", "www."};

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(), [](char a, char b) {
           return a == (b >= 'A' && b <= 'Z' ? b + ('a' - 'A') : b);
         });
}

std::size_t startLength(std::string_view text) {
  for (const std::string_view start : starts) {
    if (startsWithIgnoringCase(text, start)) return start.size();
  }
  return 0;
}

bool endsAddress(char32_t character) {
  return isWhiteSpace(character) || character < 0x20 ||
         (character < 0x80 && std::string_view("<>\"`{}|\\^").find(static_cast<char>(character)) !=
                                  std::string_view::npos) ||
         character == U'“' || character == U'”' || character == U'«' || character == U'»';
}

/// Less what belongs to the sentence: counts brackets once, then goes back from the end.
std::string_view withoutSentenceEnd(std::string_view address) {
  auto surplus = [&](char open, char close) {
    return std::count(address.begin(), address.end(), close) -
           std::count(address.begin(), address.end(), open);
  };
  auto round = surplus('(', ')'), square = surplus('[', ']');
  while (!address.empty()) {
    const char last = address.back();
    if (last == ')' && round > 0) {
      --round;
    } else if (last == ']' && square > 0) {
      --square;
    } else if (std::string_view(".,;:!?'").find(last) == std::string_view::npos) {
      break;
    }
    address.remove_suffix(1);
  }
  return address;
}

bool isTracking(std::string_view parameter) {
  static constexpr std::array<std::string_view, 5> prefixes = {"utm_", "hsa_", "pk_", "mtm_",
                                                               "matomo_"};
  static constexpr std::array<std::string_view, 30> names = {
      "_ga",     "_gl",         "_hsenc",     "_hsmi",   "_openstat", "dclid",
      "fbclid",  "gad_source",  "gbraid",     "gclid",   "gclsrc",    "igsh",
      "igshid",  "li_fat_id",   "mc_cid",     "mc_eid",  "mkt_tok",   "ml_subscriber_hash",
      "msclkid", "oly_anon_id", "oly_enc_id", "ref_src", "ref_url",   "rb_clickid",
      "s_cid",   "ttclid",      "twclid",     "vero_id", "wbraid",    "yclid"};
  const std::string name = lowercased(parameter.substr(0, parameter.find('=')));
  return std::any_of(prefixes.begin(), prefixes.end(),
                     [&](std::string_view prefix) { return name.starts_with(prefix); }) ||
         std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

TextPart findWebAddress(std::string_view text, std::size_t position) {
  while ((position = text.find_first_of("hHfFwW", position)) != std::string_view::npos) {
    const std::size_t start = startLength(text.substr(position, 8));
    const bool insideWord =
        position > 0 && (isASCIILetter(text[position - 1]) || isASCIIDigit(text[position - 1]));
    if (start == 0 || insideWord) {
      ++position;
      continue;
    }
    std::size_t end = position;
    for (std::size_t next = end; next < text.size(); end = next) {
      if (endsAddress(nextCodePoint(text, next))) break;
    }
    const std::size_t length = withoutSentenceEnd(text.substr(position, end - position)).size();
    if (length > start) return {position, length};
    position = end;
  }
  return {text.size(), 0};
}

std::string withoutTracking(std::string_view address) {
  const std::size_t fragment = std::min(address.find('#'), address.size());
  const std::size_t query = address.find('?');
  if (query >= fragment) return std::string(address);
  std::string kept;
  const std::string_view parameters = address.substr(query + 1, fragment - query - 1);
  for (std::size_t position = 0; position <= parameters.size();) {
    const std::size_t end = std::min(parameters.find('&', position), parameters.size());
    const std::string_view parameter = parameters.substr(position, end - position);
    if (!isTracking(parameter)) {
      kept.append(kept.empty() ? "?" : "&").append(parameter);
    }
    position = end + 1;
  }
  if (kept == "?") kept.clear();
  return std::string(address.substr(0, query)).append(kept).append(address.substr(fragment));
}

}  // namespace qf
