// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASShortcutBinder.h"

#include "foundation/SharedInstance.h"
#include "shortcuts/ValueTransformer.h"

namespace qf {
namespace {

Error undefinedKey(const std::string& key) {
  return {"this class is not key value coding-compliant for the key " + key + "."};
}

}  // namespace

MASShortcutBinder& MASShortcutBinder::sharedBinder() {
  return SharedInstance<MASShortcutBinder>::get();
}

MASShortcutBinder::MASShortcutBinder(MASShortcutMonitor* monitor,
                                     UserDefaultsController& defaultsController)
    : shortcutMonitor(monitor), _defaultsController(defaultsController) {}

MASShortcutBinder::~MASShortcutBinder() {
  for (const auto& [key, binding] : _bindings) _defaultsController.removeObserver(binding);
}

const ValueTransformer* MASShortcutBinder::transformer() const {
  if (bindingOptions.valueTransformer) return bindingOptions.valueTransformer;
  return ValueTransformer::valueTransformerForName(bindingOptions.valueTransformerName);
}

void MASShortcutBinder::bindShortcutWithDefaultsKey(const std::string& key, Action action) {
  _actions.insert_or_assign(key, std::move(action));
  if (const auto bound = _bindings.extract(key)) _defaultsController.removeObserver(bound.mapped());
  _bindings[key] = _defaultsController.addObserver(
      "values." + key, [this, key, transform = transformer()](const std::optional<Value>& value) {
        setValueForUndefinedKey(transform ? transform->transformedValue(value) : std::nullopt, key);
      });
}

void MASShortcutBinder::breakBindingWithDefaultsKey(const std::string& key) {
  if (const auto bound = _shortcuts.extract(key); bound && shortcutMonitor) {
    shortcutMonitor->unregisterShortcut(bound.mapped());
  }
  _actions.erase(key);
  if (const auto bound = _bindings.extract(key)) _defaultsController.removeObserver(bound.mapped());
}

void MASShortcutBinder::registerDefaultShortcuts(
    const std::vector<std::pair<std::string, MASShortcut>>& shortcuts) {
  const ValueTransformer* transform = transformer();
  if (!transform) return;
  for (const auto& [key, shortcut] : shortcuts) {
    if (auto value = transform->reverseTransformedValue(shortcut)) {
      _defaultsController.defaults().registerDefaults({{key, *std::move(value)}});
    }
  }
}

Result<std::optional<MASShortcut>> MASShortcutBinder::valueForUndefinedKey(
    const std::string& key) const {
  if (!isRegisteredAction(key)) return undefinedKey(key);
  const auto found = _shortcuts.find(key);
  return found == _shortcuts.end() ? std::nullopt : std::optional(found->second);
}

std::optional<Error> MASShortcutBinder::setValueForUndefinedKey(
    const std::optional<MASShortcut>& shortcut, const std::string& key) {
  if (!isRegisteredAction(key)) return undefinedKey(key);
  if (const auto bound = _shortcuts.extract(key); bound && shortcutMonitor) {
    shortcutMonitor->unregisterShortcut(bound.mapped());
  }
  if (!shortcut) return std::nullopt;
  _shortcuts.insert_or_assign(key, *shortcut);
  if (shortcutMonitor) shortcutMonitor->registerShortcut(*shortcut, _actions.at(key));
  return std::nullopt;
}

}  // namespace qf
