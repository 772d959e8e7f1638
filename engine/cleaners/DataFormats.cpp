// SPDX-License-Identifier: Apache-2.0
#include <QByteArray>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/DelimitedText.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/JSONRepair.h"
#include "engine/cleaners/JSONText.h"
#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/XMLText.h"

namespace qf {
namespace {

QByteArray byteArray(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

std::string toBase64(std::string_view text) { return byteArray(text).toBase64().toStdString(); }

/// Either alphabet, padded or not, with white space anywhere.
Result<std::string> fromBase64(std::string_view text) {
  std::string digits;
  for (const char character : text) {
    if (character == ' ' || character == '\t' || character == '\r' || character == '\n') continue;
    digits.push_back(character == '-' ? '+' : character == '_' ? '/' : character);
  }
  const auto decoded = QByteArray::fromBase64Encoding(QByteArray::fromStdString(digits),
                                                      QByteArray::AbortOnBase64DecodingErrors);
  if (!decoded) return Error{"it is no Base64"};
  std::string result = decoded.decoded.toStdString();
  if (!isValidUTF8(result)) return Error{"what it stands for in Base64 is no text"};
  return result;
}

constexpr std::size_t quotedPrintableWidth = 76;
constexpr std::string_view hexDigits = "0123456789ABCDEF";

/// RFC 2045: lines of 76 at most, a blank before a line end encoded.
std::string toQuotedPrintable(std::string_view text) {
  const std::string softBreak = std::string("=").append(lineEnding(text));
  std::string result;
  for (const TextLine& line : textLines(text)) {
    std::size_t column = 0;
    for (std::size_t i = 0; i < line.text.size(); ++i) {
      const auto byte = static_cast<unsigned char>(line.text[i]);
      const bool last = i + 1 == line.text.size();
      const bool plain =
          (byte >= 33 && byte <= 126 && byte != '=') || ((byte == ' ' || byte == '\t') && !last);
      const std::size_t length = plain ? 1 : 3;
      if (column + length > quotedPrintableWidth - (last ? 0 : 1)) {
        result.append(softBreak);
        column = 0;
      }
      if (plain) {
        result.push_back(line.text[i]);
      } else {
        result.append({'=', hexDigits[byte >> 4], hexDigits[byte & 0xF]});
      }
      column += length;
    }
    result.append(line.ending);
  }
  return result;
}

/// A sign that begins no escape stays. Fails when the bytes are no text in UTF-8.
Result<std::string> fromQuotedPrintable(std::string_view text) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    const std::string_view body = trimmedEnd(line.text);
    const bool continues = body.ends_with('=');
    for (std::size_t i = 0; i + continues < body.size(); ++i) {
      const int byte = body[i] == '=' ? hexByte(body.substr(i + 1)) : -1;
      result.push_back(byte < 0 ? body[i] : static_cast<char>(byte));
      if (byte >= 0) i += 2;
    }
    if (!continues) result.append(line.ending);
  }
  if (!isValidUTF8(result)) return Error{"what it stands for is no text in UTF-8"};
  return result;
}

Result<std::string> prettyJSON(std::string_view text) {
  return layOutJSON(text, JSONLayout::pretty);
}
Result<std::string> compactJSON(std::string_view text) {
  return layOutJSON(text, JSONLayout::compact);
}

std::string commasToTabs(std::string_view text) { return writeTSV(parseCSV(text)); }
std::string tabsToCommas(std::string_view text) { return writeCSV(parseTSV(text)); }
std::string commasToMarkdown(std::string_view text) { return writeMarkdownTable(parseCSV(text)); }
std::string tabsToMarkdown(std::string_view text) { return writeMarkdownTable(parseTSV(text)); }

Result<std::string> markdownToCommas(std::string_view text) {
  const std::vector<TableRow> rows = parseMarkdownTable(text);
  if (rows.empty()) return Error{"there is no Markdown table in the text"};
  return writeCSV(rows);
}

}  // namespace

CleanerTable dataCleaners() {
  return {
      {"#JSON-PRETTY", prettyJSON},
      {"#JSON-COMPACT", compactJSON},
      {"#ESCAPE-STRING", escapeString},
      {"#UNESCAPE-STRING", unescapeString},
      {"#BASE64-ENCODE", toBase64},
      {"#BASE64-DECODE", fromBase64},
      {"#QUOTED-PRINTABLE-ENCODE", toQuotedPrintable},
      {"#QUOTED-PRINTABLE-DECODE", fromQuotedPrintable},
      {"#CSV-TO-TSV", commasToTabs},
      {"#TSV-TO-CSV", tabsToCommas},
      {"#CSV-TO-MARKDOWN", commasToMarkdown},
      {"#TSV-TO-MARKDOWN", tabsToMarkdown},
      {"#MARKDOWN-TO-CSV", markdownToCommas},
      {"#REPAIR-JSON", repairedJSON},
      {"#XML-PRETTY", prettyXML},
  };
}

}  // namespace qf
