// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"

namespace qf {

/// Told of the parts of an HTML document in their order. Names are in lower case, text has its
/// entities decoded. What the document leaves open is closed at its end.
class HTMLHandler {
 public:
  using Attributes = std::map<std::string, std::string, std::less<>>;

  virtual ~HTMLHandler() = default;
  virtual void startElement(std::string_view name, const Attributes& attributes) = 0;
  virtual void endElement(std::string_view name) = 0;
  virtual void text(std::string_view text) = 0;
};

/// Elements inside one another beyond which a document is refused.
inline constexpr int deepestHTML = 512;

/// Reads HTML as browsers have to: any text is some document. Scripts, style sheets and comments
/// are not handed over. Nothing is fetched. An error only for too deep nesting.
[[nodiscard]] std::optional<Error> readHTML(std::string_view text, HTMLHandler& handler);

/// The character references of HTML 4 and numeric ones, decoded; what is none stays.
std::string decodedEntities(std::string_view text);
/// The five characters that mean something in HTML, as references.
std::string encodedEntities(std::string_view text);

}  // namespace qf
