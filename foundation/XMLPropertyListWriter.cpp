// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "foundation/Base64.h"
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

class XMLWriter {
 public:
  Result<Data> write(const Value& root) {
    _output = header;
    if (!value(root, 0)) return Error{"XML property list: " + _problem};
    _output += "</plist>\n";
    return Data(_output.begin(), _output.end());
  }

 private:
  bool fail(std::string_view problem) {
    _problem = problem;
    return false;
  }

  bool value(const Value& value, std::size_t depth) {
    if (_nodes++ == PropertyListLimits::file().nodes) return fail("too many values");
    _output.append(depth, '\t');
    switch (value.kind()) {
      case Value::Kind::boolean:
        _output += *value.boolean() ? "<true/>\n" : "<false/>\n";
        return true;
      case Value::Kind::integer:
        return element("integer", number(*value.integer()));
      case Value::Kind::real:
        return element("real", number(*value.real()));
      case Value::Kind::date: {
        const auto text = iso8601(*value.date());
        return text ? element("date", *text) : fail("a date outside the years 1 to 9999");
      }
      case Value::Kind::uid:
        return fail("a reference of a keyed archive");
      case Value::Kind::string:
        return text("string", *value.string());
      case Value::Kind::data:
        return data(*value.data());
      case Value::Kind::array:
        return array(*value.array(), depth);
      case Value::Kind::dictionary:
        return dictionary(*value.dictionary(), depth);
    }
    return false;
  }

  bool element(std::string_view name, std::string_view content) {
    open(name);
    _output += content;
    close(name);
    return true;
  }

  void open(std::string_view name) {
    _output += '<';
    _output += name;
    _output += '>';
  }

  void close(std::string_view name) {
    _output += "</";
    _output += name;
    _output += ">\n";
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

  bool text(std::string_view name, std::string_view content) {
    open(name);
    if (!escaped(content)) return false;
    close(name);
    return true;
  }

  bool escaped(std::string_view text) {
    if (invalidUTF8Offset(text)) return fail("text that is not UTF-8");
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const std::string_view replacement = escape(text, i);
      if (replacement.empty()) continue;
      if (replacement == forbidden) return fail("a character that XML forbids");
      _output += text.substr(done, i - done);
      _output += replacement;
      done = i + 1;
    }
    _output += text.substr(done);
    return true;
  }

  static constexpr std::string_view forbidden = "!";

  // What stands for the character at that place, when it can't stand for itself.
  static std::string_view escape(std::string_view text, std::size_t at) {
    switch (const auto c = static_cast<std::uint8_t>(text[at])) {
      case '&':
        return "&amp;";
      case '<':
        return "&lt;";
      case '>':
        return "&gt;";
      case '\r':
        return "&#13;";  // bare, a reader would take it for the end of a line
      case '\t':
      case '\n':
        return {};
      case 0xEF: {  // U+FFFE and U+FFFF
        const std::string_view character = text.substr(at, 3);
        return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF" ? forbidden
                                                                          : std::string_view();
      }
      default:
        return c < 0x20 ? forbidden : std::string_view();
    }
  }

  bool data(const Data& bytes) {
    open("data");
    appendBase64(_output, bytes);
    close("data");
    return true;
  }

  bool array(const Array& items, std::size_t depth) {
    if (depth == PropertyListLimits::file().depth) return fail("nested too deeply");
    if (items.empty()) {
      _output += "<array/>\n";
      return true;
    }
    _output += "<array>\n";
    for (const Value& item : items) {
      if (!value(item, depth + 1)) return false;
    }
    _output.append(depth, '\t');
    close("array");
    return true;
  }

  bool dictionary(const Dictionary& entries, std::size_t depth) {
    if (depth == PropertyListLimits::file().depth) return fail("nested too deeply");
    if (entries.empty()) {
      _output += "<dict/>\n";
      return true;
    }
    std::vector<const Dictionary::Entry*> sorted;
    sorted.reserve(entries.size());
    for (const auto& entry : entries) sorted.push_back(&entry);
    std::sort(sorted.begin(), sorted.end(),
              [](const auto* left, const auto* right) { return left->first < right->first; });
    _output += "<dict>\n";
    for (const auto* entry : sorted) {
      _output.append(depth + 1, '\t');
      if (!text("key", entry->first) || !value(entry->second, depth + 1)) return false;
    }
    _output.append(depth, '\t');
    close("dict");
    return true;
  }

  std::string _output;
  std::string _problem;
  std::size_t _nodes = 0;
  char _digits[32];
};

}  // namespace

Result<Data> writeXMLPropertyList(const Value& value) { return XMLWriter().write(value); }

}  // namespace qf
