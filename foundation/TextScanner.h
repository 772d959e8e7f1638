// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"
#include "foundation/PropertyList.h"

namespace qf {

/// Shared by the readers of the two text formats: a position in the text, the first error with its
/// line, and the count of values. The text outlives the scanner.
class TextScanner {
 protected:
  TextScanner(std::string_view format, std::string_view text, PropertyListLimits limits)
      : _limits(limits), _format(format), _text(text) {}

  bool atEnd() const { return _at == _text.size(); }
  /// The current character, or 0 at the end.
  char peek() const { return atEnd() ? '\0' : _text[_at]; }
  std::string_view rest() const { return _text.substr(_at); }

  template <std::size_t N>
  bool lookingAt(const char (&literal)[N]) const {
    return _text.size() - _at >= N - 1 && std::memcmp(_text.data() + _at, literal, N - 1) == 0;
  }

  template <std::size_t N>
  bool accept(const char (&literal)[N]) {
    if (!lookingAt(literal)) return false;
    _at += N - 1;
    return true;
  }

  bool accept(std::string_view text) {
    if (!rest().starts_with(text)) return false;
    _at += text.size();
    return true;
  }

  /// Moves past the next occurrence of the literal; false when there is none.
  bool skipPast(std::string_view literal) {
    const auto found = _text.find(literal, _at);
    if (found == std::string_view::npos) return false;
    _at = found + literal.size();
    return true;
  }

  /// Stores the first error, with the current line.
  std::nullopt_t fail(std::string_view what) {
    if (_error.localizedDescription.empty()) {
      const auto line = std::count(_text.begin(), _text.begin() + static_cast<long>(_at), '\n') + 1;
      _error.localizedDescription =
          std::string(_format) + ", line " + std::to_string(line) + ": " + std::string(what);
    }
    return std::nullopt;
  }
  const Error& error() const { return _error; }

  /// Counts one value nested in `depth` - 1 containers, before it is made.
  bool admit(std::size_t depth, bool isContainer) {
    if (isContainer && depth > _limits.depth) {
      fail("nested too deeply");
      return false;
    }
    if (_nodes == _limits.nodes) {
      fail("too many values");
      return false;
    }
    ++_nodes;
    return true;
  }

  std::size_t _at = 0;

 private:
  PropertyListLimits _limits;
  std::string_view _format;
  std::string_view _text;
  std::size_t _nodes = 0;
  Error _error;
};

}  // namespace qf
