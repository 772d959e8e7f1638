// SPDX-License-Identifier: Apache-2.0
#include "palette/QFNameSearch.h"

#include <algorithm>

#include "foundation/Text.h"

namespace qf {

void QFNameSearch::add(std::string_view name) {
  _names += lowercased(name);
  _ends.push_back(_names.size());
}

std::vector<std::uint32_t> QFNameSearch::namesContaining(
    const std::vector<std::string_view>& words) const {
  std::vector<std::uint32_t> found;
  const std::string_view names = _names;
  std::size_t start = 0;
  for (std::size_t i = 0; i < _ends.size(); ++i) {
    if (stringContainsValueFromArray(names.substr(start, _ends[i] - start), words))
      found.push_back(static_cast<std::uint32_t>(i));
    start = _ends[i];
  }
  return found;
}

bool QFNameSearch::stringContainsValueFromArray(std::string_view text,
                                                const std::vector<std::string_view>& words) {
  return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
    return !word.empty() && text.find(word) != std::string_view::npos;
  });
}

std::vector<std::string_view> wordsOfSearch(std::string_view text) {
  std::vector<std::string_view> words;
  for (std::size_t blank = text.find(' '); blank != std::string_view::npos;
       blank = text.find(' ')) {
    words.push_back(text.substr(0, blank));
    text.remove_prefix(blank + 1);
  }
  words.push_back(text);
  return words;
}

}  // namespace qf
