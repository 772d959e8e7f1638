// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/HTMLElements.h"

#include <algorithm>
#include <array>

namespace qf {
namespace {

template <std::size_t Count>
bool isOneOf(std::string_view name, const std::array<std::string_view, Count>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

bool isHiddenElement(std::string_view name) {
  return isOneOf<6>(name, {"head", "script", "style", "template", "title", "noscript"});
}

bool isParagraphElement(std::string_view name) {
  return isOneOf<14>(name, {"p", "h1", "h2", "h3", "h4", "h5", "h6", "pre", "blockquote", "table",
                            "dl", "figure", "ul", "ol"});
}

bool isBlockElement(std::string_view name) {
  return isOneOf<21>(name,
                     {"div",     "section",    "article", "header",   "footer",  "main", "nav",
                      "aside",   "address",    "form",    "fieldset", "tr",      "dt",   "dd",
                      "caption", "figcaption", "center",  "details",  "summary", "body", "option"});
}

bool isHeadingElement(std::string_view name) {
  return name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6';
}

}  // namespace qf
