// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// Many names, lower-cased once and laid out one behind the other, so that each letter of a search
/// can look through all of them anew. Any thread while nobody adds.
class QFNameSearch {
 public:
  /// Names are known by the order in which they were added, from 0.
  void add(std::string_view name);

  /// The names that contain one of the words, in order. The words are lower-cased already.
  std::vector<std::uint32_t> namesContaining(const std::vector<std::string_view>& words) const;

  /// Whether one of the words occurs in the text, character by character; an empty word never does.
  static bool stringContainsValueFromArray(std::string_view text,
                                           const std::vector<std::string_view>& words);

 private:
  std::string _names;
  std::vector<std::size_t> _ends;  // of each name in the text of all
};

/// The text's parts between single blanks: two blanks have an empty word between them.
std::vector<std::string_view> wordsOfSearch(std::string_view text);

}  // namespace qf
