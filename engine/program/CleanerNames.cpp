// SPDX-License-Identifier: Apache-2.0
#include "engine/program/CleanerNames.h"

#include <algorithm>

#include "engine/lists/QFCleanerLibrary.h"
#include "foundation/Text.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

std::string oneSpelling(std::string_view words) {
  if (words.starts_with('#')) words.remove_prefix(1);
  std::string result = lowercased(words);
  std::replace(result.begin(), result.end(), ' ', '-');
  return result;
}

}  // namespace

CleanerNames::CleanerNames(const Dictionary& listData, const QFCleanerLibrary& library)
    : _library(library) {
  const Dictionary* cleaners = listData.dictionary(listKey::tokenInfo);
  if (!cleaners) return;
  for (const auto& [token, info] : *cleaners) _tokens.emplace(oneSpelling(token), token);
  for (const auto& [token, info] : *cleaners) {
    const auto name = info.dictionary() ? info.dictionary()->string(listKey::name) : std::nullopt;
    if (name) _tokens.emplace(oneSpelling(*name), token);
  }
}

std::optional<std::string> CleanerNames::token(std::string_view words) const {
  if (_library.knows(words)) return std::string(words);
  if (const auto found = _tokens.find(oneSpelling(words)); found != _tokens.end()) {
    return found->second;
  }
  // One with an argument, which is text of the person's.
  if (words.starts_with('#')) words.remove_prefix(1);
  const std::size_t colon = std::min(words.find(':'), words.size());
  const std::string token =
      std::string("#").append(uppercased(words.substr(0, colon))).append(words.substr(colon));
  return _library.knows(token) ? std::optional(token) : std::nullopt;
}

std::vector<std::string> CleanerNames::leadingTokens(std::span<const std::string> words) const {
  std::vector<std::string> tokens;
  for (const std::string& word : words) {
    const auto found = token(word);
    if (!found) break;
    tokens.push_back(*found);
  }
  return tokens;
}

}  // namespace qf
