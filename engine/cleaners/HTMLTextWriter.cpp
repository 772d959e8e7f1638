// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/HTMLTextWriter.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <utility>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/DelimitedText.h"
#include "engine/cleaners/HTMLElements.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

/// Lists and quotations deeper than this are not indented any further.
constexpr std::size_t deepestPrefix = 16;

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

/// A table of Markdown in the making. Each cell is written by a writer of its own, which also has
/// the tables inside of it.
struct HTMLTextWriter::Table {
  std::vector<TableRow> rows;
  std::unique_ptr<HTMLTextWriter> cell;
  int innerTables = 0;

  void endCell() {
    if (!cell) return;
    std::string text = std::move(*cell).result();
    text.resize(trimmedEnd(text, isWhiteSpace).size());
    if (rows.empty()) rows.emplace_back();
    rows.back().push_back(std::move(text));
    cell.reset();
  }

  /// Tables of one column, or with blocks in their cells, only lay out a page.
  bool holdsData() const {
    return std::any_of(rows.begin(), rows.end(),
                       [](const TableRow& row) { return row.size() > 1; }) &&
           std::none_of(rows.begin(), rows.end(), [](const TableRow& row) {
             return std::any_of(row.begin(), row.end(), [](const std::string& field) {
               return field.find("\n\n") != std::string::npos;
             });
           });
  }
};

HTMLTextWriter::HTMLTextWriter(Form form) : _form(form) {}
HTMLTextWriter::~HTMLTextWriter() = default;

/// Whether the table took the start of the element.
bool HTMLTextWriter::startInTable(std::string_view name, const Attributes& attributes) {
  if (!_table) return false;
  if (name == "table") ++_table->innerTables;
  if (_table->innerTables == 0 && name == "tr") {
    _table->endCell();
    _table->rows.emplace_back();
  } else if (_table->innerTables == 0 && (name == "td" || name == "th")) {
    _table->endCell();
    _table->cell = std::make_unique<HTMLTextWriter>(_form);
  } else if (_table->cell) {
    _table->cell->startElement(name, attributes);
  }
  return true;
}

bool HTMLTextWriter::endInTable(std::string_view name) {
  if (!_table) return false;
  if (name == "table" && _table->innerTables == 0) {
    endTable();
    return true;
  }
  const bool isOwn = _table->innerTables == 0;
  if (name == "table") --_table->innerTables;
  if (isOwn && (name == "td" || name == "th" || name == "tr")) {
    _table->endCell();
  } else if (_table->cell) {
    _table->cell->endElement(name);
  }
  return true;
}

void HTMLTextWriter::endTable() {
  _table->endCell();
  const std::unique_ptr<Table> table = std::move(_table);
  std::erase_if(table->rows, [](const TableRow& row) { return row.empty(); });
  if (table->holdsData()) {
    writeLines(writeMarkdownTable(table->rows));
  } else {
    for (const TableRow& row : table->rows) {
      for (const std::string& field : row) {
        writeLines(field);
        requestBreak(2);
      }
    }
  }
  requestBreak(2);
}

/// Lines that are Markdown already.
void HTMLTextWriter::writeLines(std::string_view lines) {
  for (const TextLine& line : textLines(lines)) {
    if (line.text.empty()) {
      requestBreak(2);
    } else {
      write(line.text);
      requestBreak(1);
    }
  }
}

void HTMLTextWriter::startElement(std::string_view name, const Attributes& attributes) {
  if (isHiddenElement(name)) ++_hidden;
  if (_hidden > 0 || startInTable(name, attributes)) return;
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
  } else if (name == "input") {
    writeCheckBox(attributes);
  } else if (name == "table" && _form == Form::markdown) {
    _table = std::make_unique<Table>();
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
  } else if (_form == Form::markdown && isHeadingElement(name)) {
    write(std::string(static_cast<std::size_t>(name[1] - '0'), '#'));
    _spaceBefore = true;
  } else {
    openMark(markOf(name));
  }
}

void HTMLTextWriter::endElement(std::string_view name) {
  if (isHiddenElement(name)) {
    --_hidden;
    return;
  }
  if (_hidden > 0 || endInTable(name)) return;
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
  if (isParagraphElement(name) && !inList) {
    requestBreak(2);
  } else if (inList || isBlockElement(name)) {
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

/// The mark of a task in a list.
void HTMLTextWriter::writeCheckBox(const Attributes& attributes) {
  const auto type = attributes.find("type");
  if (type == attributes.end() || type->second != "checkbox") return;
  write(attributes.contains("checked") ? "[x]" : "[ ]");
  _spaceBefore = true;
}

void HTMLTextWriter::text(std::string_view text) {
  if (_hidden > 0) return;
  if (_table) {
    if (_table->cell) _table->cell->text(text);
    return;
  }
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
  if (_table) endTable();
  _result.resize(trimmedEnd(_result, isWhiteSpace).size());
  if (!_result.empty()) _result.push_back('\n');
  return std::move(_result);
}

}  // namespace qf
