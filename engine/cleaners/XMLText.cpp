// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/XMLText.h"

#include <libxml/parser.h>
#include <libxml/xmlsave.h>

#include <memory>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

Error faultOf(xmlParserCtxt& parser) {
  const xmlError* error = xmlCtxtGetLastError(&parser);
  std::string reason = "this is not well-formed XML";
  if (error && error->line > 0) {
    reason +=
        " (line " + std::to_string(error->line) + ", column " + std::to_string(error->int2) + ")";
  }
  return Error{reason};
}

}  // namespace

Result<std::string> prettyXML(std::string_view text) {
  text = trimmed(text, isWhiteSpace);
  const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> parser(xmlNewParserCtxt(),
                                                                            &xmlFreeParserCtxt);
  constexpr int options = XML_PARSE_NOBLANKS | XML_PARSE_NONET | XML_PARSE_NOERROR |
                          XML_PARSE_NOWARNING | XML_PARSE_IGNORE_ENC;
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      xmlCtxtReadMemory(parser.get(), text.data(), static_cast<int>(text.size()), nullptr, "UTF-8",
                        options),
      &xmlFreeDoc);
  if (!document) return faultOf(*parser);
  const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                    &xmlBufferFree);
  const int declaration = text.starts_with("<?xml") ? 0 : XML_SAVE_NO_DECL;
  xmlSaveCtxt* save = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_FORMAT | declaration);
  xmlSaveDoc(save, document.get());
  xmlSaveClose(save);
  return std::string(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                     static_cast<std::size_t>(xmlBufferLength(buffer.get())));
}

}  // namespace qf
