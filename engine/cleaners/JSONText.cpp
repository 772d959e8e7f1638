// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/JSONText.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qf {
namespace {

constexpr std::size_t deepest = 512;
constexpr std::size_t indentationWidth = 2;

/// " (line 2, column 3)" of the last of so many bytes. Columns are counted in characters.
std::string placeOf(std::string_view text, std::size_t bytes) {
  const std::string_view read = text.substr(0, std::max<std::size_t>(bytes, 1) - 1);
  const std::size_t lineStart = read.rfind('\n') + 1;  // 0 where there is none
  const auto line = std::count(read.begin(), read.end(), '\n') + 1;
  const auto column = std::count_if(read.begin() + static_cast<std::ptrdiff_t>(lineStart),
                                    read.end(), [](char c) { return (c & 0xC0) != 0x80; }) +
                      1;
  return " (line " + std::to_string(line) + ", column " + std::to_string(column) + ")";
}

/// Only checks: what is right is copied from the text itself, since values would lose the spelling
/// of numbers.
class Checker : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit Checker(std::string_view text) : _text(text) {}

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool key(string_t&) override { return true; }
  bool start_object(std::size_t) override { return enter(); }
  bool start_array(std::size_t) override { return enter(); }
  bool end_object() override { return leave(); }
  bool end_array() override { return leave(); }
  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::json::exception& error) override {
    constexpr int numberOutOfRange = 406;
    _isNumberTooLarge = error.id == numberOutOfRange;
    _fault = (_isNumberTooLarge ? "a number is too large" : "this is not valid JSON") +
             placeOf(_text, position);
    return false;
  }

  bool isNumberTooLarge() const { return _isNumberTooLarge; }
  const std::string& fault() const { return _fault; }

 private:
  bool enter() {
    if (++_depth <= deepest) return true;
    _fault = "its containers are nested too deeply";
    return false;
  }
  bool leave() {
    --_depth;
    return true;
  }

  std::string_view _text;
  std::size_t _depth = 0;
  bool _isNumberTooLarge = false;
  std::string _fault;
};

std::size_t skipDigits(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of("0123456789", position), text.size());
}

/// The length of a JSON number that stands there whole, or 0.
std::size_t numberLength(std::string_view text, std::size_t start) {
  const auto isAt = [text](std::size_t position, std::string_view characters) {
    return position < text.size() && characters.find(text[position]) != std::string_view::npos;
  };
  std::size_t end = start + (isAt(start, "-") ? 1 : 0);
  const std::size_t integer = end;
  end = skipDigits(text, end);
  if (end == integer || (text[integer] == '0' && end > integer + 1)) return 0;
  if (isAt(end, ".")) {
    const std::size_t fraction = end + 1;
    if (end = skipDigits(text, fraction); end == fraction) return 0;
  }
  if (isAt(end, "eE")) {
    const std::size_t exponent = end + (isAt(end + 1, "+-") ? 2 : 1);
    if (end = skipDigits(text, exponent); end == exponent) return 0;
  }
  return isAt(end, "+-.eE") ? 0 : end - start;
}

/// The text with a 0 and blanks for each number: the parser refuses numbers beyond a double's
/// range, and places stay.
std::string withoutNumbers(std::string text) {
  bool isInString = false;
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (text[position] == '"') {
      isInString = !isInString;
    } else if (isInString) {
      if (text[position] == '\\') ++position;
    } else if (const std::size_t length = numberLength(text, position)) {
      text[position] = '0';
      std::fill_n(text.begin() + static_cast<std::ptrdiff_t>(position) + 1, length - 1, ' ');
      position += length - 1;
    }
  }
  return text;
}

std::size_t stringLength(std::string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (text[end] != '"') end += text[end] == '\\' ? 2 : 1;
  return end + 1 - start;
}

bool isSpace(char character) {
  return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// Copies right JSON part by part.
class Printer {
 public:
  Printer(std::string_view text, JSONLayout layout) : _text(text), _layout(layout) {}

  std::string print() && {
    for (std::size_t position = 0; position < _text.size();) {
      const char character = _text[position];
      std::size_t length = 1;
      if (character == '"') {
        length = stringLength(_text, position);
        _result.append(_text.substr(position, length));
      } else if (!isSpace(character)) {
        mark(character, position);
      }
      position += length;
    }
    return std::move(_result);
  }

 private:
  void mark(char character, std::size_t position) {
    const bool opens = character == '{' || character == '[';
    const bool closes = character == '}' || character == ']';
    if (closes && --_depth, closes && !_empty) breakLine();
    _result.push_back(character);
    if (opens) {
      ++_depth;
      const std::size_t next = _text.find_first_not_of(" \t\r\n", position + 1);
      _empty = _text[next] == '}' || _text[next] == ']';
      if (!_empty) breakLine();
    } else if (closes) {
      _empty = false;
    } else if (character == ',') {
      breakLine();
    } else if (character == ':' && _layout == JSONLayout::pretty) {
      _result.push_back(' ');
    }
  }

  void breakLine() {
    if (_layout == JSONLayout::compact) return;
    _result.push_back('\n');
    _result.append(_depth * indentationWidth, ' ');
  }

  std::string_view _text;
  JSONLayout _layout;
  std::string _result;
  std::size_t _depth = 0;
  bool _empty = false;  ///< the container that closes next has no contents
};

}  // namespace

std::optional<Error> jsonFault(std::string_view text) {
  Checker checker(text);
  if (nlohmann::json::sax_parse(text, &checker)) return std::nullopt;
  return Error{checker.fault()};
}

Result<std::string> layOutJSON(std::string_view text, JSONLayout layout) {
  Checker checker(text);
  if (!nlohmann::json::sax_parse(text, &checker)) {
    if (!checker.isNumberTooLarge()) return Error{checker.fault()};
    if (auto fault = jsonFault(withoutNumbers(std::string(text)))) return *std::move(fault);
  }
  std::string result = Printer(text, layout).print();
  if (layout == JSONLayout::pretty) result.push_back('\n');
  return result;
}

}  // namespace qf
