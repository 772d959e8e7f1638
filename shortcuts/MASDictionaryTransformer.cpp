// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASDictionaryTransformer.h"

namespace qf {
namespace {

constexpr const char* keyCodeKey = "keyCode";
constexpr const char* modifierFlagsKey = "modifierFlags";

/// Numbers, booleans and strings have an integer value.
bool answersIntegerValue(const Value* value) {
  return value && (value->integer() || value->real() || value->boolean() || value->string());
}

}  // namespace

std::optional<MASShortcut> MASDictionaryTransformer::transformedValue(
    const std::optional<Value>& value) const {
  const Dictionary* dictionary = value ? value->dictionary() : nullptr;
  if (!dictionary) return std::nullopt;
  const Value* keyCode = dictionary->find(keyCodeKey);
  const Value* modifierFlags = dictionary->find(modifierFlagsKey);
  if (!answersIntegerValue(keyCode) || !answersIntegerValue(modifierFlags)) return std::nullopt;
  return MASShortcut::shortcutWithKeyCode(
      static_cast<std::uint64_t>(keyCode->integerValue()),
      static_cast<std::uint64_t>(modifierFlags->integerValue()));
}

std::optional<Value> MASDictionaryTransformer::reverseTransformedValue(
    const std::optional<MASShortcut>& shortcut) const {
  if (!shortcut) return Dictionary();
  return Dictionary{{keyCodeKey, shortcut->keyCode()},
                    {modifierFlagsKey, shortcut->modifierFlags()}};
}

}  // namespace qf
