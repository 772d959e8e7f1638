// SPDX-License-Identifier: Apache-2.0
#include "foundation/OpenStepPropertyList.h"

#include <charconv>
#include <string>
#include <vector>

#include "foundation/Base64.h"
#include "foundation/DateText.h"
#include "foundation/NextStepEncoding.h"
#include "foundation/TextScanner.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("_$/:.-").find(c) != std::string_view::npos;
}

constexpr int digitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 16;
}

template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

class OpenStepReader : private TextScanner {
 public:
  OpenStepReader(std::string_view text, PropertyListLimits limits)
      : TextScanner("OpenStep property list", text, limits) {}

  Result<Value> read() {
    auto root = document();
    if (!root) return error();
    return *std::move(root);
  }

  Result<Dictionary> readEntries() {
    if (!skipBlanks()) return error();
    auto entries = dictionaryEntries(1);
    if (entries && !atEnd()) fail("expected a key");
    if (!error().localizedDescription.empty()) return error();
    return *std::move(entries);
  }

 private:
  std::optional<Value> document() {
    if (!skipBlanks()) return std::nullopt;
    if (atEnd()) return fail("no value");
    if (startsEntries()) {
      auto entries = dictionaryEntries(1);
      if (entries && !atEnd()) return fail("expected a key");
      if (!entries) return std::nullopt;
      return Value(*std::move(entries));
    }
    auto root = value(1);
    if (!root || !skipBlanks()) return std::nullopt;
    if (!atEnd()) return fail("something follows the end of the property list");
    return root;
  }

  // Whether a string follows with an equals sign or a semicolon after it.
  bool startsEntries() {
    if (!startsString()) return false;
    const std::size_t start = _at;
    const bool isKey = string() && skipBlanks() && (peek() == '=' || peek() == ';');
    _at = start;
    return isKey;
  }

  bool startsString() const { return peek() == '"' || peek() == '\'' || isWordCharacter(peek()); }

  // Blanks and comments, // to the end of the line and /* */.
  bool skipBlanks() {
    for (;;) {
      while (!atEnd() && isBlank(peek())) ++_at;
      if (lookingAt("//")) {
        while (!atEnd() && peek() != '\n' && peek() != '\r') ++_at;
      } else if (accept("/*")) {
        if (skipPast("*/")) continue;
        fail("a comment without its end");
        return false;
      } else {
        return true;
      }
    }
  }

  std::optional<Value> value(std::size_t depth) {
    if (!admit(depth, peek() == '{' || peek() == '(')) return std::nullopt;
    if (accept("{")) return dictionary(depth);
    if (accept("(")) return array(depth);
    if (accept("<*")) return typed();
    if (accept("<[")) return base64();
    if (accept("<")) return data();
    auto text = string();
    if (!text) return std::nullopt;
    return Value(*std::move(text));
  }

  std::optional<Value> array(std::size_t depth) {
    Array items;
    for (;;) {
      if (!skipBlanks()) return std::nullopt;
      if (accept(")")) return Value(std::move(items));
      auto item = value(depth + 1);
      if (!item || !skipBlanks()) return std::nullopt;
      items.push_back(*std::move(item));
      if (!accept(",") && peek() != ')') return fail("expected a comma or the end of the array");
    }
  }

  std::optional<Value> dictionary(std::size_t depth) {
    auto entries = dictionaryEntries(depth);
    if (!entries) return std::nullopt;
    if (!accept("}")) return fail("expected a key or the end of the dictionary");
    return Value(*std::move(entries));
  }

  // Entries "key = value;" and "key;", short for "key = key;".
  std::optional<Dictionary> dictionaryEntries(std::size_t depth) {
    Dictionary entries;
    for (;;) {
      if (!skipBlanks()) return std::nullopt;
      if (!startsString()) return entries;
      const auto key = string();
      if (!key || !skipBlanks()) return std::nullopt;
      if (accept(";")) {
        if (!admit(depth, false)) return std::nullopt;
        entries.set(*key, Value(*key));
        continue;
      }
      if (!accept("=")) return fail("expected an equals sign");
      if (!skipBlanks()) return std::nullopt;
      auto item = value(depth + 1);
      if (!item || !skipBlanks()) return std::nullopt;
      if (!accept(";")) return fail("expected a semicolon");
      entries.set(*key, *std::move(item));
    }
  }

  std::optional<std::string> string() {
    if (peek() == '"' || peek() == '\'') return quotedString();
    const std::string_view text = rest();
    std::size_t length = 0;
    while (length < text.size() && isWordCharacter(text[length])) ++length;
    if (length == 0) return fail(atEnd() ? "the text ends too early" : "expected a value");
    _at += length;
    return std::string(text.substr(0, length));
  }

  std::optional<std::string> quotedString() {
    const char quote = peek();
    ++_at;
    std::string text;
    for (;;) {
      const std::string_view ahead = rest();
      std::size_t length = 0;
      while (length < ahead.size() && ahead[length] != quote && ahead[length] != '\\') ++length;
      if (length == ahead.size()) return fail("a string without its end");
      if (ahead.substr(0, length).find('\0') != std::string_view::npos) {
        return fail("a zero character");
      }
      text += ahead.substr(0, length);
      _at += length + 1;
      if (ahead[length] == quote) return text;
      if (!appendEscape(text)) return std::nullopt;
    }
  }

  // The escape after a backslash.
  bool appendEscape(std::string& text) {
    static constexpr std::string_view letters = "abfnrtv\"'\\\n";
    static constexpr std::string_view characters = "\a\b\f\n\r\t\v\"'\\\n";
    const char c = peek();
    if (atEnd()) {
      fail("a string without its end");
      return false;
    }
    if (c == '\0') {
      fail("a zero character");
      return false;
    }
    if (digitValue(c) < 8) return appendOctal(text);
    ++_at;
    if (c == 'U' || c == 'u') return appendUnicode(text);
    const auto letter = letters.find(c);
    text += letter == std::string_view::npos ? c : characters[letter];
    return true;
  }

  // A number of at most `count` digits; nothing without any digit.
  std::optional<char32_t> digits(int base, std::size_t count) {
    char32_t number = 0;
    const std::size_t start = _at;
    while (_at - start < count && digitValue(peek()) < base) {
      number = number * static_cast<char32_t>(base) + static_cast<char32_t>(digitValue(peek()));
      ++_at;
    }
    if (_at == start) return std::nullopt;
    return number;
  }

  // Up to three octal digits: a character of the NeXTSTEP encoding.
  bool appendOctal(std::string& text) {
    const auto code = digits(8, 3);
    if (!code || *code > 0xFF || *code == 0) {
      fail("an octal escape of no character");
      return false;
    }
    appendUTF8(text, unicodeFromNextStep(static_cast<std::uint8_t>(*code)));
    return true;
  }

  // Up to four hexadecimal digits: a unit of UTF-16.
  bool appendUnicode(std::string& text) {
    auto code = digits(16, 4);
    if (code && isHighSurrogate(*code) && (accept("\\U") || accept("\\u"))) {
      const auto low = digits(16, 4);
      if (low && isLowSurrogate(*low)) code = combineSurrogates(*code, *low);
    }
    if (!code || !isUnicodeScalar(*code) || *code == 0) {
      fail("a Unicode escape of no character");
      return false;
    }
    appendUTF8(text, *code);
    return true;
  }

  std::optional<Value> data() {
    Data bytes;
    for (;;) {
      if (!skipBlanks()) return std::nullopt;
      if (accept(">")) return Value(std::move(bytes));
      const int high = digitValue(peek());
      ++_at;
      const int low = high < 16 ? digitValue(peek()) : 16;
      if (low == 16) {
        --_at;
        return fail("data that is not pairs of hexadecimal digits");
      }
      ++_at;
      bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
  }

  // The text up to the closing bracket, which is consumed.
  std::optional<std::string_view> upTo(std::string_view bracket) {
    const auto length = rest().find(bracket);
    if (length == std::string_view::npos) return fail("a value without its end");
    const std::string_view text = rest().substr(0, length);
    _at += length + bracket.size();
    return text;
  }

  std::optional<Value> base64() {
    const auto text = upTo("]>");
    if (!text) return std::nullopt;
    auto bytes = decodeBase64(*text);
    if (!bytes) return fail("not base 64");
    return Value(*std::move(bytes));
  }

  std::optional<Value> typed() {
    auto text = upTo(">");
    if (!text) return std::nullopt;
    const char kind = text->empty() ? '\0' : text->front();
    const std::string_view content = text->empty() ? *text : text->substr(1);
    if (kind == 'B' && (content == "Y" || content == "N")) return Value(content == "Y");
    if (kind == 'I') {
      if (const auto number = parseNumber<std::int64_t>(content)) return Value(*number);
      if (const auto number = parseNumber<std::uint64_t>(content)) return Value(*number);
    } else if (kind == 'R') {
      if (const auto number = parseNumber<double>(content)) return Value(*number);
    } else if (kind == 'D') {
      if (const auto date = dateFromGNUstep(content)) return Value(*date);
    }
    return fail("a typed value that is not one");
  }
};

}  // namespace

Result<Value> readOpenStepPropertyList(std::string_view text, PropertyListLimits limits) {
  return OpenStepReader(text, limits).read();
}

Result<Dictionary> readOpenStepEntries(std::string_view text, PropertyListLimits limits) {
  return OpenStepReader(text, limits).readEntries();
}

}  // namespace qf
