// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "foundation/PropertyList.h"

namespace qf {

// Property lists in XML: the elements and their meaning as the document type "-//Apple//DTD PLIST
// 1.0//EN" and plist(5) of macOS give them, the syntax of XML 1.0 (fifth edition). Any thread.

/// Whether the text begins like an XML property list, rather than an OpenStep one.
bool looksLikeXML(std::string_view text);

/// Reads well-formed UTF-8 without a byte order mark. A later key replaces an equal earlier one,
/// integers may be hexadecimal, attributes are skipped. Refuses entities other than XML's own five
/// and a document type with an internal subset. Errors name the line.
Result<Value> readXMLPropertyList(std::string_view text, PropertyListLimits limits);

/// Writes the standard header, tabs and sorted keys. Dates lose fractions of a second. Fails as
/// `writePropertyList` does.
Result<Data> writeXMLPropertyList(const Value& value);

}  // namespace qf
