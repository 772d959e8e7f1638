// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace qf {

// What kind of element the name, in lower case, is that of. An element is of one kind at most.

/// Its text is not shown on the page.
bool isHiddenElement(std::string_view name);
/// Begins and ends on a line of its own, with a blank line around.
bool isParagraphElement(std::string_view name);
/// Begins and ends on a line of its own.
bool isBlockElement(std::string_view name);
/// h1 to h6.
bool isHeadingElement(std::string_view name);

}  // namespace qf
