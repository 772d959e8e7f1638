// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Value.h"

namespace qf {

class QFCleanerLibrary;

/// Finds cleaners by what people write on a command line: a token with or without "#", or a name as
/// the list has it, in capitals or small letters, with hyphens for blanks.
class CleanerNames {
 public:
  /// The library must outlive the object.
  CleanerNames(const Dictionary& listData, const QFCleanerLibrary& library);

  std::optional<std::string> token(std::string_view words) const;

  /// The tokens of the words up to the first that names no cleaner.
  std::vector<std::string> leadingTokens(std::span<const std::string> words) const;

 private:
  const QFCleanerLibrary& _library;
  std::map<std::string, std::string, std::less<>> _tokens;  ///< by the words in one spelling
};

}  // namespace qf
