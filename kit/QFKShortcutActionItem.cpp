// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKShortcutActionItem.h"

#include "kit/UUID.h"

namespace qf {

QFKShortcutActionItem::QFKShortcutActionItem() : uuid(makeUUIDString()) {}

QFKShortcutActionItem::QFKShortcutActionItem(const Dictionary* record) : QFKShortcutActionItem() {
  if (!record) return;
  const auto number = [record](std::string_view key) {
    const Value* value = record->find(key);
    return value ? *value : Value(0);
  };
  const auto storedTypeValue = record->string("typeValue");
  const auto storedUUID = record->string("uuid");
  type = number("type").integerValue();
  typeValue = storedTypeValue.value_or("");
  hasShortcut = number("hasShortcut").boolValue();
  keycode = number("keycode").unsignedIntegerValue();
  modifiers = number("modifiers").unsignedIntegerValue();
  uuid = storedUUID ? std::optional(*storedUUID) : std::nullopt;
}

Dictionary QFKShortcutActionItem::dictionary() const {
  return {{"type", type},
          {"typeValue", typeValue.value_or("")},
          {"hasShortcut", hasShortcut},
          {"keycode", keycode},
          {"modifiers", modifiers},
          {"uuid", uuid ? *uuid : makeUUIDString()}};
}

QFKShortcutActionItem QFKShortcutActionItem::copy() const {
  const Dictionary record = dictionary();
  return itemFromDictionary(&record);
}

std::string QFKShortcutActionItem::description() const { return Value(dictionary()).description(); }

}  // namespace qf
