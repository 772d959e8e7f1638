// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/ValueTransformer.h"

#include "shortcuts/MASDictionaryTransformer.h"
#include "shortcuts/ShortcutArchiveTransformer.h"

namespace qf {

const ValueTransformer* ValueTransformer::valueTransformerForName(std::string_view name) {
  static const MASDictionaryTransformer dictionaryTransformer;
  static const ShortcutArchiveTransformer archiveTransformer;
  if (name == MASDictionaryTransformer::name) return &dictionaryTransformer;
  if (name == ShortcutArchiveTransformer::name) return &archiveTransformer;
  return nullptr;
}

}  // namespace qf
