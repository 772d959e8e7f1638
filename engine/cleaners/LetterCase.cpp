// SPDX-License-Identifier: Apache-2.0
// Cases that need no dictionary. Mappings are those of no particular language, so that a text comes
// out the same on every machine.
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <memory>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Sentences.h"
#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/Transliteration.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

bool isUpper(char32_t character) { return u_isupper(static_cast<UChar32>(character)); }
bool isLower(char32_t character) { return u_islower(static_cast<UChar32>(character)); }

bool isWordCharacter(char32_t character) {
  return isLetterOrDigit(character) ||
         u_charType(static_cast<UChar32>(character)) == U_NON_SPACING_MARK || character == '\'' ||
         character == 0x2019;
}

/// Calls the function with each word, and with everything between words as it is.
template <class Word, class Between>
void walkWords(std::string_view text, Word&& word, Between&& between) {
  std::size_t start = 0;
  bool inWord = false;
  const auto flush = [&](std::size_t end) {
    if (end == start) return;
    const std::string_view run = text.substr(start, end - start);
    if (inWord) {
      word(run, start, end);
    } else {
      between(run);
    }
    start = end;
  };
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    const bool isWord = isWordCharacter(nextCodePoint(text, position));
    if (isWord != inWord) flush(before);
    inWord = isWord;
  }
  flush(text.size());
}

/// The word with its first letter in title case, the rest as it is.
std::string capitalized(std::string_view word) {
  std::string result;
  for (std::size_t position = 0; position < word.size();) {
    const char32_t character = nextCodePoint(word, position);
    if (!isLetter(character)) {
      appendCodePoint(result, character);
      if (isDigit(character)) break;  // "3rd" stays
      continue;
    }
    appendCodePoint(result, static_cast<char32_t>(u_totitle(static_cast<UChar32>(character))));
    return result.append(word.substr(position));
  }
  return result.append(word.substr(result.size()));
}

/// A line of several words without one small letter. Elsewhere a word with inner capitals
/// ("iPhone", "NATO") was meant that way and keeps them.
bool isShouting(std::string_view line) {
  for (std::size_t position = 0; position < line.size();) {
    if (isLower(nextCodePoint(line, position))) return false;
  }
  int words = 0;
  walkWords(
      line, [&](std::string_view word, auto, auto) { words += visibleLength(word) > 1; },
      [](std::string_view) {});
  return words > 1;
}

bool hasInnerCapital(std::string_view word) {
  bool first = true;
  for (std::size_t position = 0; position < word.size(); first = false) {
    if (isUpper(nextCodePoint(word, position)) && !first) return true;
  }
  return false;
}

/// A line of ASCII, which most are, needs no rules of Unicode.
template <class Map>
std::string mapCase(std::string_view text, char first, char last, Map&& map) {
  return mapLines(text, [&](std::string_view line) {
    if (!isASCII(line)) return map(line);
    std::string result(line);
    for (char& character : result) {
      const bool changes = character >= first && character <= last;
      character = static_cast<char>(character ^ (changes ? 0x20 : 0));
    }
    return result;
  });
}

std::string upperCase(std::string_view text) { return mapCase(text, 'a', 'z', uppercased); }
std::string lowerCase(std::string_view text) { return mapCase(text, 'A', 'Z', lowercased); }

std::string capitalizeWords(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  walkWords(
      text, [&](std::string_view word, auto, auto) { result.append(capitalized(word)); },
      [&](std::string_view run) { result.append(run); });
  return result;
}

bool isSmallWord(std::string_view word) {
  static constexpr std::array<std::string_view, 24> words = {
      "a",   "an", "and", "as", "at",  "but", "by",  "en", "for", "from", "if", "in",
      "nor", "of", "on",  "or", "per", "so",  "the", "to", "v",   "via",  "vs", "with"};
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// A title's line: small words stay small, except the first and last and after a colon.
std::string titleLine(std::string_view line) {
  const bool keepsCapitals = !isShouting(line);
  const std::string_view end = trimmedEnd(line, [](char32_t c) { return !isWordCharacter(c); });
  std::string result;
  bool opens = true;
  walkWords(
      line,
      [&](std::string_view word, std::size_t, std::size_t wordEnd) {
        if (keepsCapitals && hasInnerCapital(word)) {
          result.append(word);
        } else {
          const std::string lower = lowercased(word);
          const bool small = !opens && wordEnd != end.size() && isSmallWord(lower);
          result.append(small ? lower : capitalized(lower));
        }
        opens = false;
      },
      [&](std::string_view run) {
        result.append(run);
        opens = opens || run.find_first_of(":?!.") != std::string_view::npos;
      });
  return result;
}

std::string titleCase(std::string_view text) { return mapLines(text, titleLine); }

std::string sentenceCase(std::string_view text) {
  bool opens = true;
  return mapLines(text, [&opens](std::string_view line) {
    const bool keepsCapitals = !isShouting(line);
    opens = opens || trimmedStart(line).empty();
    std::string result;
    walkWords(
        line,
        [&](std::string_view word, auto, auto) {
          const bool keeps = word == "I" || word.starts_with("I'") || word.starts_with("I’") ||
                             (keepsCapitals && hasInnerCapital(word));
          const std::string spelling = keeps ? std::string(word) : lowercased(word);
          result.append(opens ? capitalized(spelling) : spelling);
          opens = false;
        },
        [&](std::string_view run) {
          const std::size_t stop = run.find_last_of(".?!");
          const std::size_t end = result.size() + stop + 1;
          result.append(run);
          const bool insideWord = stop + 1 == run.size() && result.size() < line.size();
          const bool ends = stop != std::string_view::npos && !insideWord &&
                            !endsWithAbbreviation(std::string_view(result).substr(0, end),
                                                  line.substr(std::min(end, line.size())));
          opens = opens || ends || run.find("…") != std::string_view::npos;
        });
    return result;
  });
}

std::string swapCase(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    const auto icuCharacter = static_cast<UChar32>(character);
    if (isUpper(character)) return static_cast<char32_t>(u_tolower(icuCharacter));
    if (isLower(character)) return static_cast<char32_t>(u_toupper(icuCharacter));
    return character;
  });
}

/// The words of an identifier or a phrase in lower case: parted at anything but letters and digits,
/// before a capital after a small letter, and before the last capital of several ("HTMLPage").
std::vector<std::string> identifierWords(std::string_view line) {
  const std::vector<char32_t> characters = codePoints(line);
  std::vector<std::string> words;
  std::string word;
  const auto flush = [&] {
    if (!word.empty()) words.push_back(lowercased(word));
    word.clear();
  };
  for (std::size_t i = 0; i < characters.size(); ++i) {
    const char32_t character = characters[i];
    if (character == '\'' || character == 0x2019) continue;
    if (!isWordCharacter(character)) {
      flush();
      continue;
    }
    const bool nextIsLower = i + 1 < characters.size() && isLower(characters[i + 1]);
    if (i > 0 && isUpper(character) && (isLower(characters[i - 1]) || nextIsLower)) flush();
    appendCodePoint(word, character);
  }
  flush();
  return words;
}

enum class Joint { camel, pascal, snake, kebab, constant };

CleanerFunction identifierCase(Joint joint) {
  return [joint](std::string_view text) -> Result<std::string> {
    const std::string_view glue = joint == Joint::kebab                               ? "-"
                                  : joint == Joint::snake || joint == Joint::constant ? "_"
                                                                                      : "";
    return mapLines(text, [&](std::string_view line) {
      std::string result;
      for (const std::string& word : identifierWords(line)) {
        const bool first = result.empty();
        if (!first) result.append(glue);
        const bool capital = joint == Joint::pascal || (joint == Joint::camel && !first);
        result.append(capital                    ? capitalized(word)
                      : joint == Joint::constant ? uppercased(word)
                                                 : word);
      }
      return result;
    });
  };
}

/// Each line as the last part of a web address: small letters and digits of ASCII, and hyphens.
Result<std::string> slug(std::string_view text) {
  const Result<std::string> plain = transliterateToASCII(text);
  if (!plain) return plain;
  return mapLines(*plain, [](std::string_view line) {
    std::string result;
    for (const char character : lowercased(line)) {
      if (isASCIILetter(character) || isASCIIDigit(character)) {
        result.push_back(character);
      } else if (character != '\'' && !result.empty() && result.back() != '-') {
        result.push_back('-');
      }
    }
    if (result.ends_with('-')) result.pop_back();
    return result;
  });
}

}  // namespace

CleanerTable letterCaseCleaners() {
  return {
      {"#UPPERCASE", upperCase, CleanerScope::line},
      {"#LOWERCASE", lowerCase, CleanerScope::line},
      {"#TITLECASE", titleCase, CleanerScope::line},
      {"#CAPITALIZE", capitalizeWords, CleanerScope::line},
      {"#SENTENCECASE", sentenceCase},
      {"#SWAPCASE", swapCase, CleanerScope::line},
      {"#CAMELCASE", identifierCase(Joint::camel), CleanerScope::line},
      {"#PASCALCASE", identifierCase(Joint::pascal), CleanerScope::line},
      {"#SNAKECASE", identifierCase(Joint::snake), CleanerScope::line},
      {"#KEBABCASE", identifierCase(Joint::kebab), CleanerScope::line},
      {"#SLUG", slug},
      {"#CONSTANTCASE", identifierCase(Joint::constant), CleanerScope::line},
  };
}

}  // namespace qf
