// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/Punctuation.h"
#include "engine/cleaners/WhiteSpace.h"

namespace qf {
namespace {

/// The all-round clean-up of copied prose: nothing of the words changes. Every step is idempotent,
/// and none brings back what an earlier one took away, so the whole is too.
std::string scrub(std::string_view text) {
  std::string result = unixLineEnds(text);
  for (std::string (*step)(std::string_view) :
       {removeControl, removeInvisible, plainSpaces, expandLigatures, collapseSpaces,
        tidyPunctuationSpacing, trimLineEnds, collapseBlankLines}) {
    result = step(result);
  }
  // A text keeps its first indentation and whether it ends with a line end.
  const std::size_t start = result.find_first_not_of('\n');
  if (start == std::string::npos) return {};
  const std::size_t end = result.find_last_not_of('\n') + 1;
  return result.substr(start, end - start) + (end < result.size() ? "\n" : "");
}

/// The text is what the clipboard is left with, and nothing but the text.
std::string plainText(std::string_view text) { return std::string(text); }

}  // namespace

CleanerTable styleCleaners() {
  return {
      {"#SCRUB", scrub},
      {"#PLAIN-TEXT", plainText},
  };
}

}  // namespace qf
