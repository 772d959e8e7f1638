// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "engine/cleaners/Cleaner.h"

namespace qf {

/// The cleaners by token: those that are built in, and those that a person made. Any number of
/// threads may clean at once; changing the person's needs the library to itself.
class QFCleanerLibrary {
 public:
  using Cleaners = std::map<std::string, CleanerFunction, std::less<>>;
  using Tokens = std::set<std::string, std::less<>>;

  QFCleanerLibrary();

  static constexpr std::size_t largestText = std::size_t{256} << 20;

  /// Cleans a text of any bytes: ill-formed UTF-8 becomes U+FFFD first. Fails for a token that
  /// names no cleaner, for more than `largestText` bytes, and where the cleaner does. A token may
  /// hold an argument (CleanerWithArgument.h).
  Result<std::string> clean(std::string_view token, std::string_view bytes) const;

  bool knows(std::string_view token) const;
  /// Whether a text comes out the same when it is cleaned in pieces of whole lines.
  bool worksByLine(std::string_view token) const { return _byLine.contains(token); }
  const Cleaners& builtInCleaners() const { return _builtIn; }
  /// Replaces the person's own; a built-in cleaner of the same token wins.
  void setCustomCleaners(Cleaners cleaners, Tokens formattingRemovers = {}) {
    _custom = std::move(cleaners);
    _customFormattingRemovers = std::move(formattingRemovers);
  }
  /// Whether the cleaner is applied so that formatting goes, be the text changed or not.
  bool removesFormatting(std::string_view token) const {
    return _formattingRemovers.contains(token) || _customFormattingRemovers.contains(token);
  }

 private:
  Cleaners _builtIn;
  std::set<std::string, std::less<>> _byLine;
  Cleaners _custom;
  Tokens _formattingRemovers;  ///< among the built-in ones
  Tokens _customFormattingRemovers;
};

}  // namespace qf
