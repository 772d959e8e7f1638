// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Hyphenation.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Paragraphs.h"
#include "engine/cleaners/TextLines.h"
#include "foundation/Text.h"

namespace qf {
namespace {

/// What compounds that keep their hyphen begin with.
constexpr std::array compoundStarts = {
    "all",    "anti",  "best",  "co",    "cross", "cutting", "double", "easy",  "eco",
    "eight",  "en",    "ex",    "fast",  "first", "five",    "four",   "free",  "full",
    "good",   "half",  "hand",  "hard",  "heavy", "high",    "ill",    "in",    "large",
    "last",   "left",  "light", "line",  "long",  "low",     "mass",   "mid",   "mother",
    "much",   "multi", "never", "new",   "nine",  "non",     "off",    "old",   "on",
    "one",    "open",  "part",  "peer",  "post",  "quasi",   "ready",  "real",  "right",
    "second", "self",  "semi",  "seven", "short", "side",    "single", "six",   "small",
    "so",     "state", "step",  "ten",   "third", "three",   "time",   "top",   "two",
    "twenty", "up",    "user",  "vice",  "web",   "well",    "wide",   "world", "year"};

/// What such compounds end with.
constexpr std::array compoundEnds = {
    "aware",     "based",   "bit",    "board",   "borne",   "built",    "century",  "class",
    "dependent", "driven",  "effect", "end",     "ended",   "free",     "friendly", "fashioned",
    "garde",     "hand",    "handed", "hoc",     "known",   "law",      "level",    "like",
    "line",      "looking", "made",   "means",   "minded",  "off",      "old",      "only",
    "oriented",  "out",     "party",  "purpose", "quality", "related",  "right",    "scale",
    "sensitive", "shot",    "side",   "size",    "sized",   "specific", "speed",    "style",
    "term",      "time",    "to",     "up",      "value",   "wide",     "width",    "year"};

/// What follows a hyphen that stands for a part of a later word, in several languages.
constexpr std::array joiningWords = {"and", "or", "to", "und", "oder", "bzw", "bis", "sowie",
                                     "et",  "ou", "y",  "o",   "e",    "en",  "of",  "och"};

template <std::size_t Count>
bool contains(const std::array<const char*, Count>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::string_view firstWord(std::string_view text) {
  std::size_t end = 0;
  for (std::size_t position = 0; position < text.size(); end = position) {
    if (!isLetter(nextCodePoint(text, position))) break;
  }
  return text.substr(0, end);
}

bool isLowerWord(std::string_view word) {
  for (std::size_t position = 0; position < word.size();) {
    if (u_isupper(static_cast<UChar32>(nextCodePoint(word, position)))) return false;
  }
  return true;
}

/// The letters before the final hyphen. Too long for a word: none.
std::string_view wordBeforeHyphen(std::string_view line) {
  constexpr std::size_t longest = 120;
  line.remove_suffix(1);
  const std::string_view end = line.substr(line.size() - std::min(line.size(), longest));
  return end.substr(trimmedEnd(end, isLetter).size());
}

}  // namespace

std::optional<Hyphenation::Kind> Hyphenation::kind(std::string_view line, std::string_view next) {
  if (!line.ends_with('-') || line.size() < 2) return std::nullopt;
  const std::string_view left = wordBeforeHyphen(line), right = firstWord(next);
  if (left.empty() || next.empty()) return std::nullopt;
  if (right.empty()) return isASCIIDigit(next[0]) ? std::optional(Kind::compound) : std::nullopt;
  if (contains(joiningWords, right)) return Kind::open;
  const char before = line.size() > left.size() + 1 ? line[line.size() - left.size() - 2] : ' ';
  const bool isCompoundAlready = before == '-' || isASCIIDigit(before);
  std::size_t tail = 0;
  nextCodePoint(left, tail);  // a capital may begin the word, no other may be in it
  if (isCompoundAlready || !isLowerWord(right) || !isLowerWord(left.substr(tail)) ||
      tail == left.size()) {
    return Kind::compound;
  }
  const std::string start = lowercased(left), end = lowercased(right);
  if (occurs(start + end)) return Kind::parted;
  const bool usual = contains(compoundStarts, start) || contains(compoundEnds, end);
  return usual || occurs(start + '-' + end) ? Kind::compound : Kind::parted;
}

bool Hyphenation::occurs(const std::string& word) {
  if (!_words) {
    _words.emplace();
    std::size_t start = 0;
    for (std::size_t position = 0; position < _text.size();) {
      const std::size_t before = position;
      const char32_t character = nextCodePoint(_text, position);
      if (isLetter(character) || character == '-') continue;
      if (before > start) _words->insert(lowercased(_text.substr(start, before - start)));
      start = position;
    }
    if (start < _text.size()) _words->insert(lowercased(_text.substr(start)));
  }
  return _words->contains(word);
}

std::string withHyphenatedWordsJoined(std::string_view text) {
  constexpr std::string_view softHyphen = "\u00AD";
  Hyphenation hyphenation(text);
  std::string result;
  result.reserve(text.size());
  std::string_view pending;  // the line end before, where a word may go on behind it
  for (const TextLine& line : textLines(text)) {
    const LineStart start = lineStart(line.text);
    std::string_view words = start.words;
    const bool soft = result.ends_with(softHyphen);
    const auto kind = pending.empty() || soft ? std::nullopt : hyphenation.kind(result, words);
    const bool joins = !pending.empty() && start.bullet.empty() && !words.empty() &&
                       (soft || (kind && *kind != Hyphenation::Kind::open));
    if (joins) {
      if (soft) result.resize(result.size() - softHyphen.size());
      if (kind == Hyphenation::Kind::parted) result.pop_back();
      const std::size_t end = std::min(words.find_first_of(" \t"), words.size());
      result.append(words.substr(0, end)).append(pending);
      words = trimmedStart(words.substr(end));
      if (words.empty()) {  // the line had no other word, and is gone
        pending = {};
        continue;
      }
      result.append(line.text.substr(0, line.text.size() - start.words.size()));
    } else {
      result.append(pending).append(line.text.substr(0, line.text.size() - words.size()));
    }
    result.append(words);
    const std::string_view end = trimmedEnd(words);
    if (end.ends_with('-') || end.ends_with(softHyphen)) {
      result.resize(result.size() - (words.size() - end.size()));
      pending = line.ending;
    } else {
      result.append(line.ending);
      pending = {};
    }
  }
  return result.append(pending);
}

}  // namespace qf
