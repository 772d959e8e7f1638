// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "foundation/Base64.h"
#include "foundation/ByteScan.h"
#include "foundation/ByteSink.h"
#include "foundation/DateText.h"
#include "foundation/Unicode.h"
#include "foundation/XMLPropertyList.h"

namespace qf {
namespace {

constexpr std::string_view header =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

enum class Escape : std::uint8_t { none, entity, forbidden, wide };

// How a byte of text is written; `wide` bytes belong to characters outside ASCII.
constexpr std::array<Escape, 256> escapes = [] {
  std::array<Escape, 256> table{};
  for (std::size_t c = 0; c < 0x20; ++c) table[c] = Escape::forbidden;
  for (std::size_t c = 0x80; c < 0x100; ++c) table[c] = Escape::wide;
  for (const char c : {'\t', '\n'}) table[static_cast<std::uint8_t>(c)] = Escape::none;
  for (const char c : {'&', '<', '>', '\r'}) table[static_cast<std::uint8_t>(c)] = Escape::entity;
  return table;
}();

std::string_view entityFor(char c) {
  if (c == '&') return "&amp;";
  if (c == '<') return "&lt;";
  if (c == '>') return "&gt;";
  return "&#13;";  // a bare carriage return would be read as the end of a line
}

constexpr bool isNonCharacter(std::string_view text) {  // U+FFFE and U+FFFF
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

constexpr PropertyListLimits limits = PropertyListLimits::file();

class XMLWriter {
 public:
  Result<Data> write(const Value& root) {
    _output.put(header);
    if (!value(root, 0)) return Error{"XML property list: " + _problem};
    _output.put("</plist>\n");
    return _output.bytes();
  }

 private:
  bool fail(std::string_view problem) {
    _problem = problem;
    return false;
  }

  bool value(const Value& value, std::size_t depth) {
    if (_nodes++ == limits.nodes) return fail("too many values");
    if (_output.size() > limits.bytes) return fail("too large");
    indent(depth);
    switch (value.kind()) {
      case Value::Kind::boolean:
        _output.put(*value.boolean() ? "<true/>\n" : "<false/>\n");
        return true;
      case Value::Kind::integer:
        return element("<integer>", number(*value.integer()), "</integer>\n");
      case Value::Kind::real:
        return element("<real>", number(*value.real()), "</real>\n");
      case Value::Kind::date: {
        const auto text = iso8601(*value.date());
        return text ? element("<date>", *text, "</date>\n")
                    : fail("a date outside the years 1 to 9999");
      }
      case Value::Kind::uid:
        return fail("a reference of a keyed archive");
      case Value::Kind::string:
        return text("<string>", *value.string(), "</string>\n");
      case Value::Kind::data: {
        std::string text;
        appendBase64(text, *value.data());
        return element("<data>", text, "</data>\n");
      }
      case Value::Kind::array:
        return array(*value.array(), depth);
      case Value::Kind::dictionary:
        return dictionary(*value.dictionary(), depth);
    }
    return false;
  }

  void indent(std::size_t depth) {
    static constexpr char tabs[] = "\t\t\t\t\t\t\t\t";
    std::uint8_t* to = _output.reserve(depth + 8);
    if (depth > 8) std::memset(to + 8, '\t', depth - 8);
    std::memcpy(to, tabs, 8);  // one store; usually more than is kept
    _output.advanceTo(to + depth);
  }

  bool element(std::string_view start, std::string_view content, std::string_view end) {
    _output.put(start);
    _output.put(content);
    _output.put(end);
    return true;
  }

  std::string_view number(const Integer& integer) {
    const auto result = integer.isNegative()
                            ? std::to_chars(std::begin(_digits), std::end(_digits),
                                            static_cast<std::int64_t>(integer.bits()))
                            : std::to_chars(std::begin(_digits), std::end(_digits), integer.bits());
    return {_digits, result.ptr};
  }

  std::string_view number(double real) {
    if (std::isnan(real)) return "nan";
    if (std::isinf(real)) return real > 0 ? "+infinity" : "-infinity";
    return {_digits, std::to_chars(std::begin(_digits), std::end(_digits), real).ptr};
  }

  template <std::size_t N, std::size_t M>
  bool text(const char (&start)[N], std::string_view content, const char (&end)[M]) {
    _output.put(start);
    if (!escaped(content)) return false;
    _output.put(end);
    return true;
  }

  bool escaped(std::string_view text) {
    bool isChecked = false;  // whether it is known to be UTF-8
    for (;;) {
      text.remove_prefix(putPlain(text));
      if (text.empty()) return true;
      const char c = text.front();
      if (escapes[static_cast<std::uint8_t>(c)] == Escape::forbidden) {
        return fail("a character that XML forbids");
      }
      if (escapes[static_cast<std::uint8_t>(c)] == Escape::entity) {
        _output.put(entityFor(c));
        text.remove_prefix(1);
        continue;
      }
      if (!isChecked && invalidUTF8Offset(text)) return fail("text that is not UTF-8");
      isChecked = true;
      if (isNonCharacter(text)) return fail("a character that XML forbids");
      std::size_t length = 1;
      while (length < text.size() && (text[length] & 0xC0) == 0x80) ++length;
      _output.put(text.substr(0, length));
      text.remove_prefix(length);
    }
  }

  // Writes the leading part of the text that needs no escape; returns its length.
  std::size_t putPlain(std::string_view text) {
    std::uint8_t* const start = _output.reserve(text.size());
    std::uint8_t* to = start;
    std::size_t i = 0;
    for (; text.size() - i >= 8; i += 8, to += 8) {
      const std::uint64_t word = loadEight(text.data() + i);
      constexpr std::uint64_t ltToGt = eightTimes('<' ^ '>');
      if (anyBeyondASCII(word) | anyBelow(word, 0x20) | anyEqual(word, '&') |
          anyEqual(word | ltToGt, '>')) {
        break;
      }
      std::memcpy(to, &word, 8);
    }
    for (; i < text.size() && escapes[static_cast<std::uint8_t>(text[i])] == Escape::none; ++i) {
      *to++ = static_cast<std::uint8_t>(text[i]);
    }
    _output.advanceTo(to);
    return i;
  }

  bool array(const Array& items, std::size_t depth) {
    if (depth == limits.depth) return fail("nested too deeply");
    if (items.empty()) {
      _output.put("<array/>\n");
      return true;
    }
    _output.put("<array>\n");
    for (const Value& item : items) {
      if (!value(item, depth + 1)) return false;
    }
    indent(depth);
    _output.put("</array>\n");
    return true;
  }

  bool dictionary(const Dictionary& entries, std::size_t depth) {
    if (depth == limits.depth) return fail("nested too deeply");
    if (entries.empty()) {
      _output.put("<dict/>\n");
      return true;
    }
    _output.put("<dict>\n");
    const std::size_t first = _sorted.size();
    pushSorted(entries);
    for (std::size_t i = first; i < first + entries.size(); ++i) {
      const Dictionary::Entry& entry = *_sorted[i];
      indent(depth + 1);
      if (!text("<key>", entry.first, "</key>\n") || !value(entry.second, depth + 1)) return false;
    }
    _sorted.resize(first);
    indent(depth);
    _output.put("</dict>\n");
    return true;
  }

  void pushSorted(const Dictionary& entries) {
    const auto first = static_cast<std::ptrdiff_t>(_sorted.size());
    for (const auto& entry : entries) _sorted.push_back(&entry);
    const auto byKey = [](const auto* left, const auto* right) {
      return left->first < right->first;
    };
    if (std::is_sorted(_sorted.begin() + first, _sorted.end(), byKey)) return;
    std::sort(_sorted.begin() + first, _sorted.end(), byKey);
  }

  ByteSink _output;
  std::string _problem;
  std::vector<const Dictionary::Entry*> _sorted;  // the entries of all dictionaries being written
  std::size_t _nodes = 0;
  char _digits[32];
};

}  // namespace

Result<Data> writeXMLPropertyList(const Value& value) { return XMLWriter().write(value); }

}  // namespace qf
