// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string_view>

#include "foundation/PropertyList.h"
#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

/// Archives a property-list value in the NSKeyedArchiver form, as a binary property list. Fails for
/// text that is not UTF-8 and for a UID. Any thread.
Result<Data> archiveKeyed(const Value& root);

/// Archives one object of a class that codes itself by keys: its class name, and what it encodes
/// under each key.
Result<Data> archiveKeyedObject(std::string_view className, const Dictionary& codedFields);

/// Reads an archive. It may hold the classes of property-list values and the shortcut class
/// ("MASShortcut"), which reads as the dictionary of its fields. An archive with any other class or
/// any other fault is refused; the error says what is wrong and where. Any thread.
Result<Value> unarchiveKeyed(std::span<const std::uint8_t> bytes,
                             PropertyListLimits limits = PropertyListLimits::message());

}  // namespace qf
