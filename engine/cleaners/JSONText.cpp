// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/JSONText.h"

#include <nlohmann/json.hpp>

namespace qf {
namespace {

constexpr std::size_t deepest = 512;
constexpr std::size_t indentationWidth = 2;

/// Only checks: what is right is copied from the text itself, since values would lose the spelling
/// of numbers.
class Checker : public nlohmann::json_sax<nlohmann::json> {
 public:
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
                   const nlohmann::json::exception&) override {
    _fault = "it is no JSON, see byte " + std::to_string(position);
    return false;
  }

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

  std::size_t _depth = 0;
  std::string _fault;
};

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

Result<std::string> layOutJSON(std::string_view text, JSONLayout layout) {
  Checker checker;
  if (!nlohmann::json::sax_parse(text, &checker)) {
    return Error{checker.fault()};
  }
  std::string result = Printer(text, layout).print();
  if (layout == JSONLayout::pretty) result.push_back('\n');
  return result;
}

}  // namespace qf
