// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// Names, lower-cased once and stored in one buffer, so that each typed letter can search all of
/// them. It remembers where it found the words of the last search: a word that grew by a letter is
/// searched only there.
class QFNameSearch {
 public:
  /// Names are numbered from 0 in the order of adding.
  void add(std::string_view name);

  /// The names that contain one of the words, in order. The words are lower-cased already and match
  /// literally; an empty word never matches.
  std::vector<std::uint32_t> namesContainingValueFromArray(
      const std::vector<std::string_view>& words);

 private:
  struct Place {
    std::uint32_t name;
    std::size_t offset;  // of the word's first occurrence in the buffer
  };
  struct Word {
    std::string text;
    std::vector<Place> places;
  };

  std::vector<Place> placesOf(std::string_view word) const;
  const Word* latestBeginningOf(std::string_view word) const;
  void look(std::string_view word, Place place, std::size_t known, std::vector<Place>& found) const;

  std::string _names;
  std::vector<std::size_t> _ends;  // of each name in the buffer
  std::vector<Word> _latest;
};

/// The words between single blanks; two blanks enclose an empty word.
std::vector<std::string_view> wordsOfSearch(std::string_view text);

}  // namespace qf
