// SPDX-License-Identifier: Apache-2.0
#include "palette/QFNameSearch.h"

#include <algorithm>
#include <utility>

#include "foundation/Text.h"

namespace qf {

void QFNameSearch::add(std::string_view name) {
  _names += lowercased(name);
  _ends.push_back(_names.size());
  _latest.clear();
}

std::vector<std::uint32_t> QFNameSearch::namesContainingValueFromArray(
    const std::vector<std::string_view>& words) {
  std::vector<Word> searched;
  for (const std::string_view word : words) {
    if (!word.empty()) searched.push_back({std::string(word), placesOf(word)});
  }
  _latest = std::move(searched);

  std::vector<std::uint32_t> names;
  for (const Word& word : _latest) {
    const auto middle = static_cast<std::ptrdiff_t>(names.size());
    names.reserve(names.size() + word.places.size());
    for (const Place& place : word.places) names.push_back(place.name);
    std::inplace_merge(names.begin(), names.begin() + middle, names.end());
  }
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

std::vector<QFNameSearch::Place> QFNameSearch::placesOf(std::string_view word) const {
  std::vector<Place> found;
  if (const Word* beginning = latestBeginningOf(word)) {
    if (beginning->text.size() == word.size()) return beginning->places;
    found.reserve(beginning->places.size());
    for (const Place& place : beginning->places) {
      look(word, place, beginning->text.size(), found);
    }
    return found;
  }
  found.reserve(_ends.size());
  std::size_t start = 0;
  for (std::uint32_t name = 0; name < _ends.size(); ++name) {
    look(word, {name, start}, 0, found);
    start = _ends[name];
  }
  return found;
}

const QFNameSearch::Word* QFNameSearch::latestBeginningOf(std::string_view word) const {
  const Word* longest = nullptr;
  for (const Word& latest : _latest) {
    const bool isLonger = !longest || latest.text.size() > longest->text.size();
    if (isLonger && word.starts_with(latest.text)) longest = &latest;
  }
  return longest;
}

/// From the place on, where as many characters of the word are known to stand.
void QFNameSearch::look(std::string_view word, Place place, std::size_t known,
                        std::vector<Place>& found) const {
  const std::string_view rest =
      std::string_view(_names).substr(place.offset, _ends[place.name] - place.offset);
  // Usually the next character matches as well, and comparing it here is faster than a call.
  if (known > 0 && known + 1 == word.size() && rest.size() > known && rest[known] == word[known]) {
    found.push_back(place);
  } else if (const auto at = rest.find(word); at != std::string_view::npos) {
    found.push_back({place.name, place.offset + at});
  }
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
