// SPDX-License-Identifier: Apache-2.0
#include "foundation/PropertyList.h"

#include <string>

#include "foundation/BinaryPropertyList.h"
#include "foundation/OpenStepPropertyList.h"
#include "foundation/Unicode.h"
#include "foundation/XMLPropertyList.h"

namespace qf {

Result<Value> readPropertyList(std::span<const std::uint8_t> bytes, PropertyListLimits limits) {
  if (bytes.size() > limits.bytes) return Error{"property list: too large"};
  if (looksLikeBinaryPropertyList(bytes)) return readBinaryPropertyList(bytes, limits);
  std::string storage;
  const auto text = decodeTextFile(bytes, storage);
  if (!text) return Error{"property list: " + text.error().localizedDescription};
  return looksLikeXML(*text) ? readXMLPropertyList(*text, limits)
                             : readOpenStepPropertyList(*text, limits);
}

Result<Data> writePropertyList(const Value& value, PropertyListFormat format) {
  return format == PropertyListFormat::xml ? writeXMLPropertyList(value)
                                           : writeBinaryPropertyList(value);
}

}  // namespace qf
