// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/JSONRepair.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/JSONText.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t deepest = 512;

/// The quotation marks that open a text, each with what closes it.
constexpr std::pair<std::string_view, std::string_view> quotationMarks[] = {
    {"\"", "\""}, {"'", "'"}, {"`", "`"}, {"“", "”"}, {"„", "“"}, {"‘", "’"}};

constexpr std::pair<std::string_view, std::string_view> constants[] = {
    {"true", "true"},   {"false", "false"}, {"null", "null"},      {"True", "true"},
    {"False", "false"}, {"None", "null"},   {"undefined", "null"}, {"NaN", "null"}};

bool isSpace(char character) {
  return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// The number as JSON spells it; empty for what is none.
std::string numberSpelling(std::string_view word) {
  if (word.starts_with('+')) word.remove_prefix(1);
  const bool negative = word.starts_with('-');
  if (negative) word.remove_prefix(1);
  const std::size_t exponent = std::min(word.find_first_of("eE"), word.size());
  const std::string_view mantissa = word.substr(0, exponent);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::string_view whole = mantissa.substr(0, point);
  const std::string_view part = point < mantissa.size() ? mantissa.substr(point + 1) : "";
  const auto areDigits = [](std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(), isASCIIDigit);
  };
  if (whole.empty() && part.empty()) return {};
  if (!areDigits(whole) || !areDigits(part) || (whole.size() > 1 && whole[0] == '0')) return {};
  std::string_view power = word.substr(exponent);
  if (!power.empty()) {
    power.remove_prefix(power.size() > 1 && (power[1] == '-' || power[1] == '+') ? 2 : 1);
    if (power.empty() || !areDigits(power)) return {};
  }
  std::string result = negative ? "-" : "";
  result.append(whole.empty() ? "0" : whole);
  if (!part.empty()) result.append(".").append(part);
  return result.append(word.substr(exponent));
}

class JSONRepairer {
 public:
  explicit JSONRepairer(std::string_view text) : _text(text) {}

  Result<std::string> repaired() && {
    skipFence();
    skip();
    if (!at("{") && !at("[")) return Error{"it does not begin with a JSON object or list"};
    value();
    if (_tooDeep) return Error{"its containers are nested too deeply"};
    skip();
    if (at(";") || at("```")) _position += at(";") ? 1 : 3;
    skip();
    if (_position < _text.size()) return Error{"there is more text behind the JSON"};
    return std::move(_result);
  }

 private:
  bool at(std::string_view piece) const { return _text.substr(_position).starts_with(piece); }
  bool isAtEnd() const { return _position >= _text.size(); }

  /// Markdown puts JSON between such lines.
  void skipFence() {
    skip();
    if (at("```")) _position = std::min(_text.find('\n', _position), _text.size());
  }

  /// White space and comments.
  void skip() {
    while (!isAtEnd()) {
      if (isSpace(_text[_position])) {
        ++_position;
      } else if (at("\uFEFF") || at("\u00A0")) {
        _position += at("\uFEFF") ? 3 : 2;
      } else if (at("//") || at("#")) {
        _position = std::min(_text.find('\n', _position), _text.size());
      } else if (at("/*")) {
        const std::size_t end = _text.find("*/", _position + 2);
        _position = end == npos ? _text.size() : end + 2;
      } else {
        return;
      }
    }
  }

  void value() {
    if (at("{") || at("[")) return container();
    if (!quoted()) word();
  }

  void container() {
    if (++_depth > deepest) {
      _tooDeep = true;
      _position = _text.size();
      return;
    }
    const bool isObject = at("{");
    _result.push_back(isObject ? '{' : '[');
    ++_position;
    for (bool first = true;;) {
      skipCommas();
      if (isAtEnd() || at("}") || at("]")) break;
      const std::size_t before = _position;
      if (!first) _result.push_back(',');
      first = false;
      if (isObject) name();
      value();
      if (_position == before) ++_position;  // a character that stands for nothing
    }
    if (!isAtEnd()) ++_position;
    _result.push_back(isObject ? '}' : ']');
    --_depth;
  }

  void skipCommas() {
    skip();
    while (at(",")) {
      ++_position;
      skip();
    }
  }

  void name() {
    if (!quoted()) {
      const std::size_t end =
          std::min(_text.find_first_of(":=,{}[] \t\r\n", _position), _text.size());
      writeString(_text.substr(_position, end - _position));
      _position = end;
    }
    skip();
    if (at("=>")) {
      _position += 2;
    } else if (at(":") || at("=")) {
      ++_position;
    }
    skip();
    _result.push_back(':');
    if (isAtEnd() || at(",") || at("}") || at("]")) _result.append("null");
  }

  bool quoted() {
    for (const auto& [open, close] : quotationMarks) {
      if (!at(open)) continue;
      _position += open.size();
      std::string content;
      while (!isAtEnd() && !at(close)) {
        const std::size_t length =
            at("\\") ? std::min<std::size_t>(2, _text.size() - _position) : 1;
        const std::string_view piece = _text.substr(_position, length);
        content.append(piece == "\\'" || piece == "\\`" ? piece.substr(1) : piece);
        _position += length;
      }
      _position = std::min(_position + close.size(), _text.size());
      writeString(unescapeString(content));
      return true;
    }
    return false;
  }

  /// A constant, a number, or else a text without its quotation marks.
  void word() {
    if (isAtEnd() || at(",") || at("}") || at("]")) return;
    const std::size_t end = std::min(_text.find_first_of(",{}[]\"\r\n", _position), _text.size());
    std::string_view words = _text.substr(_position, end - _position);
    words = trimmedEnd(words.substr(0, std::min(words.find(" //"), words.find(" #"))));
    // A comma may be missing behind a number: 1 "b": 2
    const std::size_t blank = std::min(words.find_first_of(" \t"), words.size());
    const std::string_view behind = trimmedStart(words.substr(blank));
    if (behind.starts_with('\'') || behind.starts_with("“")) words = words.substr(0, blank);
    _position += words.size();
    for (const auto& [spelling, constant] : constants) {
      if (words == spelling) {
        _result.append(constant);
        return;
      }
    }
    const std::string number = numberSpelling(words);
    number.empty() ? writeString(words) : void(_result.append(number));
  }

  void writeString(std::string_view content) {
    _result.append("\"").append(escapeString(content)).append("\"");
  }

  std::string_view _text;
  std::size_t _position = 0;
  std::size_t _depth = 0;
  bool _tooDeep = false;
  std::string _result;
};

}  // namespace

Result<std::string> repairedJSON(std::string_view text) {
  if (auto right = layOutJSON(text, JSONLayout::pretty)) return right;
  const Result<std::string> repaired = JSONRepairer(text).repaired();
  if (!repaired) return repaired;
  return layOutJSON(*repaired, JSONLayout::pretty);
}

}  // namespace qf
