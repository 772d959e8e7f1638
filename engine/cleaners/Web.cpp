// SPDX-License-Identifier: Apache-2.0
#include <md4c-html.h>

#include <QByteArray>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
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

/// Keeps the text between tags as it stands.
class TagStripper : public HTMLHandler {
 public:
  void startElement(std::string_view name, const Attributes&) override { _hidden += hides(name); }
  void endElement(std::string_view name) override { _hidden -= hides(name); }
  void text(std::string_view text) override {
    if (_hidden == 0) result.append(text);
  }

  std::string result;

 private:
  static bool hides(std::string_view name) { return name == "script" || name == "style"; }
  int _hidden = 0;
};

Result<std::string> stripTags(std::string_view text) {
  TagStripper stripper;
  if (auto error = readHTML(text, stripper)) return *error;
  return std::move(stripper.result);
}

/// CommonMark with tables, struck-out text and bare links.
Result<std::string> markdownToHTML(std::string_view text) {
  std::string result;
  const auto append = [](const MD_CHAR* piece, MD_SIZE size, void* target) {
    static_cast<std::string*>(target)->append(piece, size);
  };
  const int failed = md_html(text.data(), static_cast<MD_SIZE>(text.size()), append, &result,
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

Result<std::string> percentDecode(std::string_view text) {
  std::string result =
      QByteArray::fromPercentEncoding({text.data(), static_cast<qsizetype>(text.size())})
          .toStdString();
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
      {"#ENCODE-ENTITIES", encodedEntities},
      {"#DECODE-ENTITIES", decodedEntities},
      {"#URL-ENCODE", percentEncode},
      {"#URL-DECODE", percentDecode},
  };
}

}  // namespace qf
