// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/HTMLReader.h"

#include <libxml/HTMLparser.h>

#include <charconv>
#include <memory>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

std::string_view view(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

struct Reading {
  HTMLHandler& handler;
  htmlParserCtxtPtr parser = nullptr;
  int depth = 0;
  bool tooDeep = false;
};

void startElement(void* context, const xmlChar* name, const xmlChar** attributes) {
  auto& reading = *static_cast<Reading*>(context);
  if (reading.tooDeep || ++reading.depth > deepestHTML) {
    reading.tooDeep = true;
    return xmlStopParser(reading.parser);
  }
  HTMLHandler::Attributes values;
  for (; attributes && attributes[0]; attributes += 2) {
    values.emplace(view(attributes[0]), attributes[1] ? view(attributes[1]) : "");
  }
  reading.handler.startElement(view(name), values);
}

void endElement(void* context, const xmlChar* name) {
  auto& reading = *static_cast<Reading*>(context);
  --reading.depth;
  if (!reading.tooDeep) reading.handler.endElement(view(name));
}

void characters(void* context, const xmlChar* text, int length) {
  auto& reading = *static_cast<Reading*>(context);
  if (!reading.tooDeep) {
    reading.handler.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
  }
}

/// The character of a reference's name, or 0.
char32_t referenced(std::string_view name) {
  if (!name.starts_with('#')) {
    const std::string terminated(name);
    const auto* entity = htmlEntityLookup(reinterpret_cast<const xmlChar*>(terminated.c_str()));
    return entity ? entity->value : 0;
  }
  const bool hexadecimal = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
  const char* start = name.data() + (hexadecimal ? 2 : 1);
  const char* end = name.data() + name.size();
  std::uint32_t value = 0;
  const auto [stop, error] = std::from_chars(start, end, value, hexadecimal ? 16 : 10);
  const bool isCharacter = value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
  return error == std::errc() && stop == end && isCharacter ? value : 0;
}

}  // namespace

std::optional<Error> readHTML(std::string_view text, HTMLHandler& handler) {
  htmlSAXHandler callbacks = {};
  callbacks.startElement = startElement;
  callbacks.endElement = endElement;
  callbacks.characters = characters;
  callbacks.ignorableWhitespace = characters;
  const std::unique_ptr<htmlParserCtxt, decltype(&htmlFreeParserCtxt)> parser(htmlNewParserCtxt(),
                                                                              &htmlFreeParserCtxt);
  if (!parser || text.empty()) return std::nullopt;
  Reading reading{handler, parser.get()};
  *parser->sax = callbacks;
  parser->userData = &reading;
  constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                          HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC;
  xmlFreeDoc(htmlCtxtReadMemory(parser.get(), text.data(), static_cast<int>(text.size()), nullptr,
                                "UTF-8", options));
  if (reading.tooDeep) return Error{"its elements are nested too deeply"};
  return std::nullopt;
}

std::string decodedEntities(std::string_view text) {
  constexpr std::size_t longestName = 12;
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = std::min(text.find('&', position), text.size());
    result.append(text.substr(position, start - position));
    if (start == text.size()) break;
    const std::string_view rest = text.substr(start + 1, longestName);
    const std::size_t end = rest.find(';');
    const char32_t character = end == std::string_view::npos ? 0 : referenced(rest.substr(0, end));
    if (character == 0) {
      result.push_back('&');
      position = start + 1;
    } else {
      appendCodePoint(result, character);
      position = start + end + 2;
    }
  }
  return result;
}

std::string encodedEntities(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char character : text) {
    switch (character) {
      case '&':
        result.append("&amp;");
        break;
      case '<':
        result.append("&lt;");
        break;
      case '>':
        result.append("&gt;");
        break;
      case '"':
        result.append("&quot;");
        break;
      case '\'':
        result.append("&#39;");
        break;
      default:
        result.push_back(character);
    }
  }
  return result;
}

}  // namespace qf
