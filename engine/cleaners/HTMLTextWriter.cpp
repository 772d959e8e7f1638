// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/HTMLTextWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

/// Lists and quotations deeper than this are not indented any further.
constexpr std::size_t deepestPrefix = 16;

template <std::size_t Count>
bool isOneOf(std::string_view name, const std::array<std::string_view, Count>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool isHidden(std::string_view name) {
  return isOneOf<6>(name, {"head", "script", "style", "template", "title", "noscript"});
}

/// Begins and ends on a line of its own, with a blank line around.
bool isParagraph(std::string_view name) {
  return isOneOf<14>(name, {"p", "h1", "h2", "h3", "h4", "h5", "h6", "pre", "blockquote", "table",
                            "dl", "figure", "ul", "ol"});
}

/// Begins and ends on a line of its own.
bool isBlock(std::string_view name) {
  return isOneOf<21>(name,
                     {"div",     "section",    "article", "header",   "footer",  "main", "nav",
                      "aside",   "address",    "form",    "fieldset", "tr",      "dt",   "dd",
                      "caption", "figcaption", "center",  "details",  "summary", "body", "option"});
}

bool isHeading(std::string_view name) {
  return name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
}

bool isSpace(char character) {
  return character == ' ' || character == '\t' || character == '\n' || character == '\r' ||
         character == '\f';
}

/// The number before that of a list's first item.
int numberBefore(const HTMLHandler::Attributes& attributes) {
  int start = 1;
  if (const auto given = attributes.find("start"); given != attributes.end()) {
    const std::string& digits = given->second;
    std::from_chars(digits.data(), digits.data() + std::min<std::size_t>(digits.size(), 8), start);
  }
  return start - 1;
}

std::string escapedMarkdown(std::string_view words) {
  std::string result;
  for (const char character : words) {
    if (std::string_view("\\`*_[]<>").find(character) != std::string_view::npos) {
      result.push_back('\\');
    }
    result.push_back(character);
  }
  return result;
}

}  // namespace

void HTMLTextWriter::startElement(std::string_view name, const Attributes& attributes) {
  if (isHidden(name)) ++_hidden;
  if (_hidden > 0) return;
  openBlock(name);
  if (name == "br") {
    requestBreak(std::min(_breakLines + 1, 2));
  } else if (name == "hr") {
    requestBreak(2);
    write("---");
    requestBreak(2);
  } else if (name == "ul" || name == "ol") {
    _lists.push_back({name == "ol", numberBefore(attributes)});
  } else if (name == "li") {
    startItem();
  } else if (name == "a") {
    startLink(attributes);
  } else if (name == "img") {
    writeImage(attributes);
  } else if (name == "tr") {
    _isFirstCell = true;
  } else if (name == "td" || name == "th") {
    _tabBefore = !_isFirstCell && _breakLines == 0;
    _isFirstCell = false;
  } else if (name == "blockquote") {
    pushPrefix("> ");
  } else if (name == "pre") {
    ++_preformatted;
    if (_form == Form::markdown) {
      write("```");
      requestBreak(1);
    }
  } else if (_form == Form::markdown && isHeading(name)) {
    write(std::string(static_cast<std::size_t>(name[1] - '0'), '#'));
    _spaceBefore = true;
  } else {
    openMark(markOf(name));
  }
}

void HTMLTextWriter::endElement(std::string_view name) {
  if (isHidden(name)) {
    --_hidden;
    return;
  }
  if (_hidden > 0) return;
  if (name == "ul" || name == "ol") {
    if (!_lists.empty()) _lists.pop_back();
  } else if (name == "li") {
    endItem();
  } else if (name == "a") {
    endLink();
  } else if (name == "blockquote") {
    popPrefix();
  } else if (name == "pre") {
    --_preformatted;
    if (_form == Form::markdown) {
      requestBreak(1);
      write("```");
    }
  } else {
    closeMark(markOf(name));
  }
  openBlock(name);
}

void HTMLTextWriter::openBlock(std::string_view name) {
  const bool inList = (name == "ul" || name == "ol") && !_prefixes.empty();
  if (isParagraph(name) && !inList) {
    requestBreak(2);
  } else if (inList || isBlock(name)) {
    requestBreak(1);
  }
}

void HTMLTextWriter::startItem() {
  requestBreak(1);
  if (!_bullet.empty()) beginWriting();
  std::string bullet = "- ";
  if (!_lists.empty() && _lists.back().ordered) {
    bullet = std::to_string(++_lists.back().number) + ". ";
  }
  pushPrefix(std::string(bullet.size(), ' '));
  _bullet = _prefixes.back().empty() ? std::string() : bullet;
}

void HTMLTextWriter::endItem() {
  _bullet.clear();
  popPrefix();
  requestBreak(1);
}

void HTMLTextWriter::startLink(const Attributes& attributes) {
  const auto found = attributes.find("href");
  _link.reset();
  if (found == attributes.end()) return;
  const std::string address(trimmed(found->second, isWhiteSpace));
  if (address.empty() || address[0] == '#' || address.starts_with("javascript:")) return;
  if (_form == Form::markdown) openMark("[");
  _link = Link{address, std::nullopt};
}

void HTMLTextWriter::endLink() {
  if (!_link) return;
  const Link link = *std::exchange(_link, std::nullopt);
  if (_form == Form::markdown) {
    _result.append("](").append(replacedAll(link.address, " ", "%20")).append(")");
    return;
  }
  const std::string_view written =
      trimmedEnd(std::string_view(_result).substr(link.start.value_or(_result.size())));
  const std::string_view address =
      link.address.starts_with("mailto:") ? std::string_view(link.address).substr(7) : link.address;
  const bool saysItself = written.empty() || written == address || written == link.address;
  if (saysItself && !written.empty()) return;
  if (!written.empty()) _spaceBefore = true;
  write(written.empty() ? std::string(address) : std::string("(").append(address).append(")"));
}

void HTMLTextWriter::writeImage(const Attributes& attributes) {
  const auto alternative = attributes.find("alt");
  if (alternative == attributes.end() || alternative->second.empty()) return;
  const auto source = attributes.find("src");
  _spaceBefore = true;
  if (_form == Form::text || source == attributes.end()) {
    text(alternative->second);
  } else {
    write("![" + escapedMarkdown(alternative->second) + "](" +
          replacedAll(source->second, " ", "%20") + ")");
  }
  _spaceBefore = true;
}

void HTMLTextWriter::text(std::string_view text) {
  if (_hidden > 0) return;
  if (_preformatted > 0) return writePreformatted(text);
  for (std::size_t position = 0; position < text.size();) {
    if (isSpace(text[position])) {
      _spaceBefore = true;
      ++position;
      continue;
    }
    std::size_t end = position;
    while (end < text.size() && !isSpace(text[end])) ++end;
    const std::string_view word = text.substr(position, end - position);
    write(_form == Form::markdown ? escapedMarkdown(word) : word);
    position = end;
  }
}

void HTMLTextWriter::writePreformatted(std::string_view text) {
  for (const TextLine& line : textLines(text)) {
    if (!line.text.empty()) write(line.text);
    if (line.ending.empty()) continue;
    if (_breakLines > 0 || _isAtLineStart) beginWriting();
    requestBreak(1);
  }
}

void HTMLTextWriter::pushPrefix(std::string prefix) {
  if (_prefixes.size() >= deepestPrefix) prefix.clear();
  _prefixes.push_back(std::move(prefix));
}

void HTMLTextWriter::popPrefix() {
  if (!_prefixes.empty()) _prefixes.pop_back();
}

void HTMLTextWriter::requestBreak(int lines) {
  _spaceBefore = _tabBefore = false;
  if (_isAtLineStart && _breakLines == 0) return;
  _breakPrefixes = std::min(_breakLines == 0 ? _prefixes.size() : _breakPrefixes, _prefixes.size());
  _breakLines = std::max(_breakLines, lines);
}

/// Carries out what is due before words: breaks, the line's prefixes, a bullet, a blank.
void HTMLTextWriter::beginWriting() {
  if (_breakLines > 0) {
    _result.resize(trimmedEnd(_result, [](char32_t c) { return c == ' ' || c == '\t'; }).size());
    for (int line = 0; line < _breakLines; ++line) {
      _result.push_back('\n');
      if (line + 1 == _breakLines) break;
      std::string blank;  // a quotation goes on through its blank lines
      for (std::size_t i = 0; i < _breakPrefixes; ++i) blank.append(_prefixes[i]);
      _result.append(trimmedEnd(blank));
    }
    _breakLines = 0;
    _isAtLineStart = true;
  }
  if (_isAtLineStart) {
    for (std::size_t i = 0; i < _prefixes.size(); ++i) {
      _result.append(i + 1 == _prefixes.size() && !_bullet.empty() ? _bullet : _prefixes[i]);
    }
    _bullet.clear();
  } else if (_tabBefore) {
    _result.push_back('\t');
  } else if (_spaceBefore) {
    _result.push_back(' ');
  }
  _tabBefore = _spaceBefore = _isAtLineStart = false;
}

void HTMLTextWriter::write(std::string_view words) {
  beginWriting();
  if (_link && !_link->start) _link->start = _result.size();
  _result.append(words);
}

std::string_view HTMLTextWriter::markOf(std::string_view name) const {
  if (_form == Form::text || _preformatted > 0) return "";
  if (name == "b" || name == "strong") return "**";
  if (name == "i" || name == "em") return "*";
  if (name == "code") return "`";
  if (name == "del" || name == "s" || name == "strike") return "~~";
  return "";
}

void HTMLTextWriter::openMark(std::string_view mark) {
  if (!mark.empty()) write(mark);
}

void HTMLTextWriter::closeMark(std::string_view mark) {
  if (mark.empty()) return;
  if (_result.ends_with(mark)) {  // nothing was marked
    _result.resize(_result.size() - mark.size());
  } else {
    _result.append(mark);
  }
}

std::string HTMLTextWriter::result() && {
  _result.resize(trimmedEnd(_result, isWhiteSpace).size());
  if (!_result.empty()) _result.push_back('\n');
  return std::move(_result);
}

}  // namespace qf
