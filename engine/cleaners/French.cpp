// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/French.h"

#include <algorithm>
#include <array>
#include <string>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

// Words that are frequent in French and in no other of the larger languages.
constexpr std::array frenchWords = {
    "à",     "au",   "aux",   "avec", "bonjour", "ce",   "cela", "ces",  "cette", "dans",
    "du",    "elle", "elles", "est",  "être",    "fait", "ils",  "je",   "leur",  "mais",
    "merci", "moi",  "nous",  "oui",  "où",      "pas",  "peut", "pour", "qu",    "que",
    "qui",   "quoi", "sont",  "sur",  "très",    "une",  "vous", "été"};
constexpr std::size_t longestSample = 20'000;
constexpr std::size_t wordsForOneFrench = 9;

}  // namespace

bool isFrench(std::string_view text) {
  std::size_t sample = std::min(text.size(), longestSample);
  while (sample < text.size() && (static_cast<unsigned char>(text[sample]) & 0xC0) == 0x80)
    --sample;
  text = text.substr(0, sample);
  std::size_t words = 0, french = text.find("« ") != std::string_view::npos;
  std::string word;
  for (std::size_t position = 0; position <= text.size();) {
    const char32_t character = position < text.size() ? nextCodePoint(text, position) : U' ';
    if (isLetter(character)) {
      appendCodePoint(word, character);
    } else if (!word.empty()) {
      ++words;
      word = lowercased(word);
      french += std::find(frenchWords.begin(), frenchWords.end(), word) != frenchWords.end();
      word.clear();
    }
    if (position == text.size() && word.empty()) break;
  }
  return french > 0 && french * wordsForOneFrench >= words;
}

}  // namespace qf
