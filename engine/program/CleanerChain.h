// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Result.h"

namespace qf {

class QFCleanerLibrary;

/// Cleaners that are carried out one after the other. Any number of threads may clean at once.
class CleanerChain {
 public:
  /// A cleaner's name by its token.
  using NameOf = std::function<std::string(std::string_view token)>;

  /// The library must outlive the object.
  CleanerChain(
      const QFCleanerLibrary& library, std::vector<std::string> tokens,
      NameOf nameOf = [](std::string_view token) { return std::string(token); })
      : _library(library), _tokens(std::move(tokens)), _nameOf(std::move(nameOf)) {}

  /// Fails where one of them does, or the text is too large for one. The error begins with the
  /// cleaner's name.
  Result<std::string> clean(std::string_view bytes) const;
  /// Whether a text can be cleaned in pieces of whole lines.
  bool worksByLine() const;

 private:
  const QFCleanerLibrary& _library;
  std::vector<std::string> _tokens;
  NameOf _nameOf;
};

}  // namespace qf
