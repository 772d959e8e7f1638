// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>

#include "foundation/PropertyList.h"

namespace qf {

// Binary property lists, version 0, as CFBinaryPList.c of Apple's open-source CoreFoundation
// describes them. Any thread.
//
// "bplist0?", the objects, a table of their offsets, and a trailer of 32 bytes: 6 unused, the size
// of an offset, the size of a reference, then 8 bytes each: the number of objects, the root's
// number, the table's offset. All numbers are big-endian. An object is a marker byte (kind in the
// high half, size in the low half; 15 means that an integer object with the size follows) and its
// content. Containers hold references, which are object numbers.

bool looksLikeBinaryPropertyList(std::span<const std::uint8_t> bytes);

/// Refuses overlapping objects, sets, null and dates out of range. Errors name the byte offset.
Result<Value> readBinaryPropertyList(std::span<const std::uint8_t> bytes,
                                     PropertyListLimits limits);

/// Writes equal scalars and equal strings once, and numbers and references in the fewest bytes.
/// Fails as `writePropertyList` does.
Result<Data> writeBinaryPropertyList(const Value& value);

}  // namespace qf
