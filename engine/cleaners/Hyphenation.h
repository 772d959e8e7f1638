// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace qf {

/// Decides what a hyphen at the end of a line stands for. Without a dictionary: by the other words
/// of the text, and by what compounds of English begin and end with.
class Hyphenation {
 public:
  enum class Kind {
    parted,    ///< "exam-" "ple": one word
    compound,  ///< "well-" "known": a word with a hyphen
    open,      ///< "pre-" "and post-war": the hyphen stands for a part that follows later
  };

  /// The text must outlive the object.
  explicit Hyphenation(std::string_view text) : _text(text) {}

  /// Of a line that ends with a hyphen, and the words that follow; nothing when the hyphen ends no
  /// word.
  std::optional<Kind> kind(std::string_view line, std::string_view next);

 private:
  bool occurs(const std::string& word);

  std::string_view _text;
  std::optional<std::unordered_set<std::string>> _words;  ///< made when first asked for
};

/// Puts words that were parted at line ends together again, on the line where they begin. Other
/// lines stay.
std::string withHyphenatedWordsJoined(std::string_view text);

}  // namespace qf
