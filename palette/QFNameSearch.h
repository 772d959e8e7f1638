// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// Many names, lower-cased once and laid out one behind the other, so that a search can look
/// through all of them at each letter typed. It remembers where it found the words of the latest
/// search: one that grows by a letter is looked for there only.
class QFNameSearch {
 public:
  /// Names are known by the order in which they were added, from 0.
  void add(std::string_view name);

  /// The names that contain one of the words, in order. The words are lower-cased already; a word
  /// occurs character by character, an empty one never.
  std::vector<std::uint32_t> namesContainingValueFromArray(
      const std::vector<std::string_view>& words);

 private:
  struct Place {
    std::uint32_t name;
    std::size_t offset;  // of the word's first occurrence, in the text of all
  };
  struct Word {
    std::string text;
    std::vector<Place> places;
  };

  std::vector<Place> placesOf(std::string_view word) const;
  const Word* latestBeginningOf(std::string_view word) const;
  void look(std::string_view word, Place place, std::size_t known, std::vector<Place>& found) const;

  std::string _names;
  std::vector<std::size_t> _ends;  // of each name in the text of all
  std::vector<Word> _latest;
};

/// The text's parts between single blanks: two blanks have an empty word between them.
std::vector<std::string_view> wordsOfSearch(std::string_view text);

}  // namespace qf
