// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Sentences.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <memory>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

/// Before names and the like, in lower case and without the stop.
constexpr std::array abbreviations = {
    // English
    "approx", "asst", "attn", "ave", "blvd", "brig", "capt", "cf", "cmdr", "col", "cpl", "dept",
    "dr", "ed", "eds", "esp", "esq", "ext", "gen", "gov", "hon", "lt", "maj", "messrs", "mr", "mrs",
    "ms", "mt", "prof", "rep", "rev", "sen", "sgt", "st", "univ", "vs", "viz",
    // German
    "abb", "abt", "allg", "anm", "aufl", "ausg", "bd", "bsp", "bspw", "bzgl", "bzw", "ca", "dipl",
    "ebd", "einschl", "evtl", "ggf", "ggfs", "hr", "hrsg", "inkl", "insb", "jh", "lfd", "mio",
    "mrd", "sog", "std", "tel", "verf", "vgl", "vorm", "zb", "zzgl",
    // French, Spanish, Italian, Portuguese, Dutch
    "av", "bijv", "blz", "chap", "dhr", "dott", "dra", "env", "ex", "excl", "ing", "mlle", "mme",
    "mevr", "núm", "pág", "pag", "resp", "sig", "sra", "srta", "ud", "uds"};

/// Those that are words or sentences of their own elsewhere: only before a number.
constexpr std::array beforeNumbers = {
    "abs", "anh",  "apr", "art", "aug", "cap", "ch",   "dec", "dez",  "eq",  "feb", "fig",
    "jan", "kap",  "mar", "max", "min", "no",  "nos",  "nov", "nr",   "oct", "okt", "op",
    "p",   "para", "pp",  "rn",  "s",   "sec", "sect", "sep", "sept", "tab", "vol", "ziff"};

/// Those that end sentences as well: only where the next word is small.
constexpr std::array beforeSmallWords = {"co", "corp", "etc", "inc", "jr", "ltd", "sr", "usw"};

/// German writes "3. Mai": an ordinal's stop ends no sentence before these.
constexpr std::array germanMonths = {"januar",    "februar", "märz",     "april",
                                     "mai",       "juni",    "juli",     "august",
                                     "september", "oktober", "november", "dezember"};

template <std::size_t Count>
bool contains(const std::array<const char*, Count>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// What stands before the final stop, back to a character that is no letter, digit or stop.
std::string_view lastToken(std::string_view text) {
  constexpr std::size_t longest = 24;
  std::size_t start = text.size();
  while (start > 0 && text.size() - start < longest) {
    std::size_t before = start - 1;
    while (before > 0 && (static_cast<unsigned char>(text[before]) & 0xC0) == 0x80) --before;
    std::size_t position = before;
    const char32_t character = nextCodePoint(text, position);
    if (!isLetterOrDigit(character) && character != '.') break;
    start = before;
  }
  return text.substr(start);
}

std::string_view firstWord(std::string_view text) {
  std::size_t end = 0;
  for (std::size_t position = 0; position < text.size(); end = position) {
    if (!isLetter(nextCodePoint(text, position))) break;
  }
  return text.substr(0, end);
}

bool isASCIINumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isASCIIDigit);
}

/// One letter or several with stops between them: "e.g", "z.B", "U.S".
bool isDottedLetters(std::string_view token) {
  bool letterIsDue = true;
  std::size_t letters = 0;
  for (std::size_t position = 0; position < token.size(); letterIsDue = !letterIsDue) {
    const char32_t character = nextCodePoint(token, position);
    if (letterIsDue ? !isLetter(character) : character != '.') return false;
    letters += letterIsDue;
  }
  return letters > 1;
}

bool isInitial(std::string_view token) {
  std::size_t position = 0;
  return !token.empty() && u_isupper(static_cast<UChar32>(nextCodePoint(token, position))) &&
         position == token.size() && token != "I";
}

/// Whether the sentence goes on in the next words although the rules part them.
bool goesOn(std::string_view before, std::string_view next) {
  const std::string_view sentence = trimmedEnd(before, isWhiteSpace);
  if (sentence.empty() || next.empty()) return false;
  if (sentence.back() == '.') {
    return endsWithAbbreviation(sentence, next) ||
           isInitial(lastToken(sentence.substr(0, sentence.size() - 1)));
  }
  const bool quoted = sentence.back() == '"' || sentence.back() == '\'' ||
                      sentence.ends_with("”") || sentence.ends_with("’") ||
                      sentence.ends_with("“") || sentence.ends_with("»") || sentence.ends_with("‘");
  std::size_t position = 0;
  return quoted && u_islower(static_cast<UChar32>(nextCodePoint(next, position)));
}

}  // namespace

bool endsWithAbbreviation(std::string_view text, std::string_view next) {
  if (!text.ends_with('.')) return false;
  const std::string_view token = lastToken(text.substr(0, text.size() - 1));
  const std::string_view following = trimmedStart(next);
  if (token.empty() || isDottedLetters(token)) return !token.empty();
  const std::string word = lowercased(token);
  if (contains(abbreviations, word)) return true;
  if (isASCIINumber(token)) {
    return token.size() <= 2 && contains(germanMonths, lowercased(firstWord(following)));
  }
  if (following.empty()) return false;
  std::size_t position = 0;
  const bool small = u_islower(static_cast<UChar32>(nextCodePoint(following, position)));
  return (small && contains(beforeSmallWords, word)) ||
         (isASCIIDigit(following[0]) && contains(beforeNumbers, word));
}

Result<std::vector<std::size_t>> sentenceLengths(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  // Making one takes longer than most lines.
  thread_local const std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createSentenceInstance(icu::Locale::getRoot(), status));
  if (!breaks) return Error{"the rules for sentences are missing on this machine"};
  const icu::UnicodeString characters = unicodeString(text);
  breaks->setText(characters);
  std::vector<std::size_t> lengths;
  std::size_t start = 0, position = 0;
  int32_t from = breaks->first();
  for (int32_t to = breaks->next(); to != icu::BreakIterator::DONE; to = breaks->next()) {
    for (; from < to; from = characters.moveIndex32(from, 1)) nextCodePoint(text, position);
    if (position < text.size() &&
        goesOn(text.substr(start, position - start), text.substr(position)))
      continue;
    lengths.push_back(position - start);
    start = position;
  }
  if (start < text.size()) lengths.push_back(text.size() - start);
  return lengths;
}

}  // namespace qf
