// SPDX-License-Identifier: Apache-2.0
#include <md4c-html.h>

#include <QByteArray>
#include <algorithm>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/HTMLElements.h"
#include "engine/cleaners/HTMLReader.h"
#include "engine/cleaners/HTMLTextWriter.h"
#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/WebAddress.h"

namespace qf {
namespace {

Result<std::string> htmlTo(HTMLTextWriter::Form form, std::string_view html) {
  HTMLTextWriter writer(form);
  if (auto error = readHTML(html, writer)) return *error;
  return std::move(writer).result();
}

Result<std::string> htmlToText(std::string_view text) {
  return htmlTo(HTMLTextWriter::Form::text, text);
}

Result<std::string> htmlToMarkdown(std::string_view text) {
  return htmlTo(HTMLTextWriter::Form::markdown, text);
}

/// Keeps the text between tags as it stands. Where a block begins or ends a line does, too, and a
/// tab parts the cells of a table.
class TagStripper : public HTMLHandler {
 public:
  void startElement(std::string_view name, const Attributes&) override {
    _hidden += hides(name);
    part(name);
  }
  void endElement(std::string_view name) override {
    _hidden -= hides(name);
    if (name != "br" && name != "hr") part(name);
  }
  void text(std::string_view text) override {
    if (_hidden > 0) return;
    const bool isOnLine = !result.empty() && result.back() != '\n';
    if (_due != 0 && isOnLine && !text.starts_with('\n') && !text.starts_with('\r')) {
      result.push_back(_due);
    }
    result.append(text);
    _due = 0;
  }

  std::string result;

 private:
  static bool hides(std::string_view name) { return name == "script" || name == "style"; }

  void part(std::string_view name) {
    if (isBlockElement(name) || isParagraphElement(name) || name == "br" || name == "hr" ||
        name == "li") {
      _due = '\n';
    } else if ((name == "td" || name == "th") && _due == 0) {
      _due = '\t';
    }
  }

  int _hidden = 0;
  char _due = 0;  ///< what parts the next text from the one before
};

Result<std::string> stripTags(std::string_view text) {
  TagStripper stripper;
  if (auto error = readHTML(text, stripper)) return *error;
  return std::move(stripper.result);
}

/// CommonMark would take a note ("[^1]: words") for the address of a link. Each becomes a paragraph
/// that begins with its mark, as do the marks in the text stay.
std::string withPlainFootnotes(std::string_view text) {
  if (text.find("[^") == std::string_view::npos) return std::string(text);
  std::string result;
  bool inFence = false, afterBlank = true;
  for (const TextLine& line : textLines(text)) {
    const std::string_view words = trimmedStart(line.text);
    const bool isFence = words.starts_with("```") || words.starts_with("~~~");
    inFence = inFence != isFence;
    const bool isNote =
        !inFence && line.text.starts_with("[^") && line.text.find("]:") != std::string_view::npos;
    if (isNote) result.append(afterBlank ? "" : lineEnding(text)).push_back('\\');
    result.append(line.text).append(line.ending);
    afterBlank = words.empty();
  }
  return result;
}

/// CommonMark with tables, struck-out text, tasks, bare links, and footnotes.
Result<std::string> markdownToHTML(std::string_view text) {
  std::string result;
  const auto append = [](const MD_CHAR* piece, MD_SIZE size, void* target) {
    static_cast<std::string*>(target)->append(piece, size);
  };
  const std::string source = withPlainFootnotes(text);
  const int failed = md_html(source.data(), static_cast<MD_SIZE>(source.size()), append, &result,
                             MD_DIALECT_GITHUB, MD_HTML_FLAG_SKIP_UTF8_BOM);
  if (failed) return Error{"it cannot be read as Markdown"};
  return result;
}

Result<std::string> markdownToText(std::string_view text) {
  Result<std::string> html = markdownToHTML(text);
  return html ? htmlToText(*html) : html;
}

/// The text with its web addresses as links.
std::string linked(std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const TextPart part = findWebAddress(text, position);
    result.append(encodedEntities(text.substr(position, part.start - position)));
    if (part.length > 0) {
      const std::string address = encodedEntities(text.substr(part.start, part.length));
      const bool bare = address.find("://") == std::string::npos;
      result.append("<a href=\"").append(bare ? "https://" : "").append(address).append("\">");
      result.append(address).append("</a>");
    }
    position = part.start + part.length;
  }
  return result;
}

/// Paragraphs at blank lines, line breaks at the others.
std::string textToHTML(std::string_view text) {
  std::string result;
  bool isOpen = false;
  for (const TextLine& line : textLines(text)) {
    if (line.isBlank()) {
      if (isOpen) result.append("</p>\n");
      isOpen = false;
      continue;
    }
    result.append(isOpen ? "<br>\n" : "<p>").append(linked(line.text));
    isOpen = true;
  }
  return result.append(isOpen ? "</p>\n" : "");
}

/// RFC 3986: all but unreserved characters.
std::string percentEncode(std::string_view text) {
  return QByteArray(text.data(), static_cast<qsizetype>(text.size()))
      .toPercentEncoding()
      .toStdString();
}

/// A sign that begins no escape stays.
Result<std::string> percentDecode(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t sign = std::min(text.find('%', position), text.size());
    result.append(text.substr(position, sign - position));
    if (sign == text.size()) break;
    const int byte = hexByte(text.substr(sign + 1));
    result.push_back(byte < 0 ? '%' : static_cast<char>(byte));
    position = sign + (byte < 0 ? 1 : 3);
  }
  if (!isValidUTF8(result)) return Error{"what its escapes stand for is no text in UTF-8"};
  return result;
}

}  // namespace

CleanerTable webCleaners() {
  return {
      {"#HTML-TO-TEXT", htmlToText},
      {"#HTML-TO-MARKDOWN", htmlToMarkdown},
      {"#STRIP-TAGS", stripTags},
      {"#TEXT-TO-HTML", textToHTML},
      {"#MARKDOWN-TO-TEXT", markdownToText},
      {"#MARKDOWN-TO-HTML", markdownToHTML},
      {"#ENCODE-ENTITIES", encodedEntities, CleanerScope::line},
      {"#DECODE-ENTITIES", decodedEntities, CleanerScope::line},
      {"#URL-ENCODE", percentEncode},
      {"#URL-DECODE", percentDecode},
  };
}

}  // namespace qf
