// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <string>
#include <vector>

#include "foundation/Base64.h"
#include "foundation/ByteScan.h"
#include "foundation/DateText.h"
#include "foundation/TextScanner.h"
#include "foundation/Unicode.h"
#include "foundation/XMLPropertyList.h"

namespace qf {
namespace {

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// XML 1.0, production 2.
constexpr bool isXMLCharacter(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return isUnicodeScalar(code) && code != 0xFFFE && code != 0xFFFF;
}

// Whether well-formed UTF-8 begins with a character that XML forbids.
constexpr bool isForbidden(std::string_view text) {
  return !isXMLCharacter(static_cast<std::uint8_t>(text.front())) ||
         text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

enum : std::uint8_t { endsName = 1, endsPlainText = 2 };

// What a byte ends. 0xEF begins the two characters outside ASCII that XML forbids.
constexpr std::array<std::uint8_t, 256> byteRoles = [] {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t c = 0; c < 0x20; ++c) table[c] = endsPlainText;
  table['\t'] = table['\n'] = table[' '] = endsName;
  table['>'] = table['/'] = endsName;
  table['\r'] = table['<'] = endsName | endsPlainText;
  table['&'] = table[0xEF] = endsPlainText;
  return table;
}();

constexpr bool hasRole(char c, std::uint8_t role) {
  return byteRoles[static_cast<std::uint8_t>(c)] & role;
}

// The length of the leading plain text: no markup, no reference.
std::size_t plainLength(std::string_view text) {
  std::size_t length = 0;
  for (; text.size() - length >= 8; length += 8) {
    const std::uint64_t word = loadEight(text.data() + length);
    const std::uint64_t ends =
        anyEqual(word, '<') | anyEqual(word, '&') | anyBelow(word, 0x20) | anyEqual(word, '\xEF');
    if (!ends) continue;
    length += firstOfEight(ends);
    break;
  }
  while (length < text.size() && !hasRole(text[length], endsPlainText)) ++length;
  return length;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

template <class Number>
std::optional<Number> wholeNumber(std::string_view digits, int base) {
  Number number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

std::optional<Integer> parseInteger(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (isHexadecimal) text.remove_prefix(2);
  const auto magnitude = wholeNumber<std::uint64_t>(text, isHexadecimal ? 16 : 10);
  if (!magnitude) return std::nullopt;
  if (!isNegative) return Integer::fromUnsigned(*magnitude);
  if (*magnitude > std::uint64_t{1} << 63) return std::nullopt;
  return Integer(static_cast<std::int64_t>(-*magnitude));
}

std::optional<double> parseReal(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.ends_with(')')) {
    return std::nullopt;
  }
  return number;
}

class XMLReader : private TextScanner {
 public:
  XMLReader(std::string_view text, PropertyListLimits limits)
      : TextScanner("XML property list", text, limits) {}

  Result<Value> read() {
    const DenseMemory memory;
    auto root = document();
    if (!root) return error();
    return *std::move(root);
  }

 private:
  struct Tag {
    std::string_view name;
    bool isEmpty;  // <name/>
  };

  std::optional<Value> document() {
    if (!skipMarkup(true)) return std::nullopt;
    const auto tag = startTag();
    if (!tag) return std::nullopt;
    const bool isWrapped = tag->name == "plist";
    if (isWrapped && tag->isEmpty) return fail("no value");
    auto root = isWrapped ? element(1) : element(*tag, 1);
    if (!root || !skipMarkup(false)) return std::nullopt;
    if (isWrapped && (!endTag("plist") || !skipMarkup(false))) return std::nullopt;
    if (!atEnd()) return fail("something follows the end of the property list");
    return root;
  }

  // Checks for characters that XML forbids in the parts that are not read as text.
  bool checkSkipped(std::size_t start) {
    const std::size_t end = _at;
    for (_at = start; _at < end; ++_at) {
      if (isForbidden(rest())) {
        fail("a character that XML forbids");
        return false;
      }
    }
    return true;
  }

  void skipBlanks() {
    const std::string_view text = rest();
    std::size_t length = 0;
    while (length < text.size() && isBlank(text[length])) ++length;
    _at += length;
  }

  // Blanks, comments and processing instructions; before the root element a document type, too.
  bool skipMarkup(bool inProlog) {
    for (;;) {
      skipBlanks();
      const std::string_view text = rest();
      if (text.size() < 2 || (text[1] != '!' && text[1] != '?') || text[0] != '<') return true;
      if (lookingAt("<!--") || lookingAt("<?")) {
        if (!skipNote()) return false;
      } else if (!inProlog || !lookingAt("<!DOCTYPE")) {
        return true;
      } else if (!skipDocumentType()) {
        return false;
      }
    }
  }

  bool skipNote() {
    const bool isComment = accept("<!--");
    if (!isComment && rest().substr(2).starts_with("xml") && !checkDeclaration()) return false;
    const std::size_t start = _at;
    if (skipPast(isComment ? "-->" : "?>")) return checkSkipped(start);
    fail(isComment ? "a comment without its end" : "a processing instruction without its end");
    return false;
  }

  // The encoding was found from the bytes themselves; a declaration of another one contradicts
  // them.
  bool checkDeclaration() {
    const std::string_view declaration = rest().substr(0, rest().find("?>"));
    const auto key = declaration.find("encoding");
    if (key == std::string_view::npos) return true;
    const auto open = declaration.find_first_of("\"'", key);
    if (open == std::string_view::npos) return true;
    const auto close = declaration.find(declaration[open], open + 1);
    std::string name(
        declaration.substr(open + 1, close == std::string_view::npos ? close : close - open - 1));
    for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    if (name.starts_with("UTF-") || name == "UTF8" || name == "US-ASCII" || name == "ASCII") {
      return true;
    }
    fail("the declared encoding is not a Unicode one");
    return false;
  }

  bool skipDocumentType() {
    const std::size_t start = _at;
    char quote = 0;
    for (; !atEnd(); ++_at) {
      const char c = peek();
      if (quote) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '[') {
        fail("a document type with an internal subset");
        return false;
      } else if (c == '>') {
        ++_at;
        return checkSkipped(start);
      }
    }
    fail("a document type without its end");
    return false;
  }

  std::optional<Tag> startTag() {
    if (peek() != '<') return fail(atEnd() ? "the text ends too early" : "expected an element");
    if (accept("<string>")) return Tag{"string", false};  // the most frequent
    if (accept("<key>")) return Tag{"key", false};
    if (accept("<dict>")) return Tag{"dict", false};
    const std::string_view text = rest().substr(1);
    std::size_t length = 0;
    while (length < text.size() && !hasRole(text[length], endsName)) ++length;
    Tag tag{text.substr(0, length), false};
    if (tag.name.empty()) return fail("expected an element");
    _at += 1 + length;
    if (peek() == '>') {
      ++_at;
      return tag;
    }
    if (!skipAttributes()) return std::nullopt;
    tag.isEmpty = accept("/");
    if (!accept(">")) return fail("a tag without its end");
    return tag;
  }

  bool skipAttributes() {
    const std::size_t start = _at;
    for (;;) {
      skipBlanks();
      if (atEnd() || peek() == '>' || peek() == '/') return checkSkipped(start);
      const auto assign = rest().find_first_of("=<>");
      if (assign != std::string_view::npos && rest()[assign] == '=') {
        _at += assign + 1;
        skipBlanks();
        const char quote = peek();
        if (quote == '"' || quote == '\'') {
          ++_at;
          if (skipPast({&quote, 1})) continue;
        }
      }
      fail("an attribute without its value");
      return false;
    }
  }

  bool endTag(std::string_view name) {
    if (accept("</") && accept(name)) {
      skipBlanks();
      if (accept(">")) return true;
    }
    fail("expected the end of \"" + std::string(name) + "\"");
    return false;
  }

  std::optional<Value> element(std::size_t depth) {
    if (!skipMarkup(false)) return std::nullopt;
    const auto tag = startTag();
    if (!tag) return std::nullopt;
    return element(*tag, depth);
  }

  std::optional<Value> element(const Tag& tag, std::size_t depth) {
    const std::string_view name = tag.name;
    if (!admit(depth, name == "dict" || name == "array")) return std::nullopt;
    if (name == "dict") return dictionary(tag, depth);
    if (name == "array") return array(tag, depth);
    const auto text = content(tag);
    if (!text) return std::nullopt;
    return scalar(name, *text);
  }

  std::optional<Value> scalar(std::string_view name, std::string_view text) {
    if (name == "string") return Value(text);
    if (name == "integer") {
      if (const auto number = parseInteger(trimmed(text))) return Value(*number);
      return fail("not a whole number of 64 bits");
    }
    if (name == "true" || name == "false") {
      if (trimmed(text).empty()) return Value(name == "true");
      return fail("a truth value with content");
    }
    if (name == "real") {
      if (const auto number = parseReal(trimmed(text))) return Value(*number);
      return fail("not a real number");
    }
    if (name == "data") {
      if (auto bytes = decodeBase64(text)) return Value(*std::move(bytes));
      return fail("not base 64");
    }
    if (name == "date") {
      if (const auto date = dateFromISO8601(trimmed(text))) return Value(*date);
      return fail("not a date");
    }
    return fail("unknown element \"" + std::string(name.substr(0, 40)) + "\"");
  }

  std::optional<Value> array(const Tag& tag, std::size_t depth) {
    const std::size_t first = _items.size();
    while (!tag.isEmpty) {
      if (!skipMarkup(false)) return std::nullopt;
      if (lookingAt("</")) {
        if (!endTag("array")) return std::nullopt;
        break;
      }
      auto item = element(depth + 1);
      if (!item) return std::nullopt;
      _items.push_back(*std::move(item));
    }
    const auto start = _items.begin() + static_cast<std::ptrdiff_t>(first);
    Array items(std::make_move_iterator(start), std::make_move_iterator(_items.end()));
    _items.erase(start, _items.end());
    return Value(std::move(items));
  }

  std::optional<Value> dictionary(const Tag& tag, std::size_t depth) {
    const std::size_t first = _entries.size();
    while (!tag.isEmpty) {
      if (!skipMarkup(false)) return std::nullopt;
      if (lookingAt("</")) {
        if (!endTag("dict")) return std::nullopt;
        break;
      }
      const auto keyTag = startTag();
      if (!keyTag) return std::nullopt;
      if (keyTag->name != "key") return fail("expected a key");
      const auto key = content(*keyTag);
      if (!key) return std::nullopt;
      _entries.emplace_back(*key, false);
      const std::size_t place = _entries.size() - 1;
      auto value = element(depth + 1);
      if (!value) return std::nullopt;
      _entries[place].second = *std::move(value);
    }
    const auto start = _entries.begin() + static_cast<std::ptrdiff_t>(first);
    Dictionary entries(Dictionary::Entries(std::make_move_iterator(start),
                                           std::make_move_iterator(_entries.end())));
    _entries.erase(start, _entries.end());
    return Value(std::move(entries));
  }

  // The characters up to the end tag, which is consumed. Valid until the next call.
  std::optional<std::string_view> content(const Tag& tag) {
    if (tag.isEmpty) return std::string_view();
    const std::string_view text = rest();
    const std::size_t length = plainLength(text);
    if (text.substr(length).starts_with("</")) {
      _at += length;
      if (!endTag(tag.name)) return std::nullopt;
      return text.substr(0, length);
    }
    _content.clear();
    while (!lookingAt("</")) {
      if (!appendContent()) return std::nullopt;
    }
    if (!endTag(tag.name)) return std::nullopt;
    return _content;
  }

  bool appendContent() {
    const std::size_t length = plainLength(rest());
    _content += rest().substr(0, length);
    _at += length;
    if (lookingAt("</")) return true;
    if (accept("\r")) {  // XML 1.0, section 2.11: every end of line is a line feed
      accept("\n");
      _content += '\n';
      return true;
    }
    if (peek() == '&') return appendReference();
    if (peek() == '\xEF' && !isForbidden(rest())) {
      _content += peek();
      ++_at;
      return true;
    }
    if (accept("<![CDATA[")) return appendCharacterData();
    if (lookingAt("<!--") || lookingAt("<?")) return skipNote();
    fail(atEnd()               ? "the text ends too early"
         : isForbidden(rest()) ? "a character that XML forbids"
                               : "an element where only text may stand");
    return false;
  }

  bool appendCharacterData() {
    const auto length = rest().find("]]>");
    if (length == std::string_view::npos) {
      fail("a CDATA section without its end");
      return false;
    }
    const std::string_view characters = rest().substr(0, length);
    for (std::size_t i = 0; i < characters.size(); ++i) {
      const bool endsLine = characters[i] == '\r';
      _content += endsLine ? '\n' : characters[i];
      if (endsLine && characters.substr(i + 1).starts_with('\n')) ++i;
    }
    const std::size_t start = _at;
    _at += length;
    if (!checkSkipped(start)) return false;
    _at += 3;
    return true;
  }

  bool appendReference() {
    static constexpr std::pair<std::string_view, char> entities[] = {
        {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&apos;", '\''}, {"&quot;", '"'}};
    for (const auto& [entity, character] : entities) {
      if (!accept(entity)) continue;
      _content += character;
      return true;
    }
    const auto end = rest().substr(0, 32).find(';');
    if (end == std::string_view::npos || !lookingAt("&#")) {
      fail("an entity that is not declared");
      return false;
    }
    std::string_view digits = rest().substr(2, end - 2);
    const bool isHexadecimal = digits.starts_with('x');
    if (isHexadecimal) digits.remove_prefix(1);
    const auto code = wholeNumber<std::uint32_t>(digits, isHexadecimal ? 16 : 10);
    if (!code || !isXMLCharacter(*code)) {
      fail("a reference to no character");
      return false;
    }
    appendUTF8(_content, *code);
    _at += end + 1;
    return true;
  }

  std::string _content;
  // The elements, so far, of all containers being read.
  Array _items;
  std::vector<Dictionary::Entry> _entries;
};

}  // namespace

bool looksLikeXML(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\n\r");
  if (first == std::string_view::npos) return false;
  text.remove_prefix(first);
  // Also a value without its <plist>; OpenStep data begins with hexadecimal digits instead.
  static constexpr std::string_view beginnings[] = {"<?",     "<!",      "<plist",   "<dict",
                                                    "<array", "<string", "<integer", "<real",
                                                    "<true",  "<false",  "<date",    "<data"};
  return std::any_of(std::begin(beginnings), std::end(beginnings),
                     [text](std::string_view beginning) { return text.starts_with(beginning); });
}

Result<Value> readXMLPropertyList(std::string_view text, PropertyListLimits limits) {
  return XMLReader(text, limits).read();
}

}  // namespace qf
