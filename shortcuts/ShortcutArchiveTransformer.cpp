// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/ShortcutArchiveTransformer.h"

#include "foundation/KeyedArchive.h"

namespace qf {

std::optional<MASShortcut> ShortcutArchiveTransformer::transformedValue(
    const std::optional<Value>& value) const {
  const Data* data = value ? value->data() : nullptr;
  if (!data) return std::nullopt;
  const auto object = unarchiveKeyed(*data);
  const Dictionary* fields = object ? object->dictionary() : nullptr;
  if (!fields || !fields->contains("KeyCode")) return std::nullopt;
  return MASShortcut::initWithCoder(*fields);
}

std::optional<Value> ShortcutArchiveTransformer::reverseTransformedValue(
    const std::optional<MASShortcut>& shortcut) const {
  if (!shortcut) return std::nullopt;
  auto archive = archiveKeyedObject("MASShortcut", shortcut->encodeWithCoder());
  if (!archive) return std::nullopt;
  return Value(*std::move(archive));
}

}  // namespace qf
