// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/ShortcutsModel.h"

#include <algorithm>

#include "engine/window/models/MenuSettings.h"

namespace qf {
namespace {

std::optional<QFKShortcutActionItem> itemForKey(const QFKMenuSettingsManager& settings,
                                                const std::string& key) {
  auto item = key == QFKMenuSettingsManager::paletteShortcutKey ? settings.paletteShortcut()
                                                                : settings.shortcutForKey(key);
  if (item) item->uuid = key;
  return item;
}

}  // namespace

ShortcutsModel::ShortcutsModel(MenuSettings& settings) : _settings(settings) {
  connect(&settings, &MenuSettings::changed, this, &ShortcutsModel::changed);
}

bool ShortcutsModel::isPalette(const QFKShortcutActionItem& item) {
  return item.uuid == QFKMenuSettingsManager::paletteShortcutKey;
}

std::vector<QFKShortcutActionItem> ShortcutsModel::items() const {
  const QFKMenuSettingsManager& settings = _settings.current();
  std::vector<std::string> keys = settings.shortcutIDList();
  keys.emplace(keys.begin(), QFKMenuSettingsManager::paletteShortcutKey);
  std::vector<QFKShortcutActionItem> items;
  for (const std::string& key : keys) {
    if (auto item = itemForKey(settings, key)) items.push_back(*std::move(item));
  }
  return items;
}

ShortcutsModel::Failure ShortcutsModel::edit(
    const std::string& key, const std::function<void(QFKShortcutActionItem&)>& change) {
  return _settings.change([&](QFKMenuSettingsManager& settings) {
    auto item = itemForKey(settings, key);
    if (!item) return;
    change(*item);
    settings.setShortcut(item);
  });
}

ShortcutsModel::Failure ShortcutsModel::record(const std::string& key,
                                               const std::optional<MASShortcut>& shortcut) {
  return edit(key, [&shortcut](QFKShortcutActionItem& item) {
    item.hasShortcut = shortcut.has_value();
    item.keycode = shortcut ? shortcut->keyCode() : 0;
    item.modifiers = shortcut ? shortcut->modifierFlags() : 0;
  });
}

ShortcutsModel::Failure ShortcutsModel::setAction(const std::string& key, std::int64_t type,
                                                  const std::string& typeValue) {
  return edit(key, [&](QFKShortcutActionItem& item) {
    item.type = type;
    item.typeValue = typeValue;
  });
}

ShortcutsModel::Failure ShortcutsModel::add(std::string& key) {
  return _settings.change([&key](auto& settings) { key = settings.addShortcut(); });
}

ShortcutsModel::Failure ShortcutsModel::remove(const std::string& key) {
  return _settings.change([&key](auto& settings) { settings.removeShortcutForKey(key); });
}

ShortcutsModel::Failure ShortcutsModel::move(const std::string& key, int places) {
  return _settings.change([&](QFKMenuSettingsManager& settings) {
    const auto keys = settings.shortcutIDList();
    const auto place = std::ranges::find(keys, key) - keys.begin() + places;
    if (place >= 0) settings.moveShortcut(key, static_cast<std::size_t>(place));
  });
}

}  // namespace qf
