// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKMenuSettingsManager.h"

#include <algorithm>
#include <utility>

#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "foundation/SharedInstance.h"
#include "host/DistributedNotificationCenter.h"
#include "host/FileManager.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKSharedContainer.h"

namespace qf {
namespace {

constexpr std::string_view menuIconIDKey = "menuIconID";
constexpr std::string_view menuStyleKey = "menuStyle";
constexpr std::string_view userShortcutsKey = "user-shortcuts";
constexpr std::string_view listKey = "__list";

std::int64_t integerForKey(const Dictionary& settings, std::string_view key) {
  const Value* value = settings.find(key);
  return value ? value->integerValue() : 0;
}

void logWriteError(const std::string& reason) { log("Error writing qfmenu.plist : " + reason); }

}  // namespace

QFKMenuSettingsManager& QFKMenuSettingsManager::sharedManager() {
  return SharedInstance<QFKMenuSettingsManager>::get();
}

QFKMenuSettingsManager::QFKMenuSettingsManager(
    const QFKSharedContainer& container, FileManager& fileManager,
    DistributedNotificationCenter& distributedNotificationCenter)
    : _container(container),
      _fileManager(fileManager),
      _distributedNotificationCenter(distributedNotificationCenter) {}

void QFKMenuSettingsManager::readSettings() {
  const auto content = _container.QFKQFMenuSettings();
  _lastRead.reset();
  if (content && content->dictionary()) _lastRead = *content->dictionary();
  const Dictionary settings = _lastRead.value_or(Dictionary());
  _menuIconID = integerForKey(settings, menuIconIDKey);
  _menuStyle = integerForKey(settings, menuStyleKey);

  _shortcutIDList.clear();
  _shortcuts.clear();
  const Dictionary* shortcuts = settings.dictionary(userShortcutsKey);
  if (!shortcuts) return;
  _shortcuts = *shortcuts;
  const Array* list = shortcuts->array(listKey);
  if (!list) return;
  for (const Value& key : *list) {
    if (key.string()) _shortcutIDList.emplace_back(*key.string());
  }
}

void QFKMenuSettingsManager::writeSettings() {
  _shortcuts.set(listKey, Array(_shortcutIDList.begin(), _shortcutIDList.end()));
  Dictionary settings{{std::string(menuIconIDKey), _menuIconID},
                      {std::string(menuStyleKey), _menuStyle},
                      {std::string(userShortcutsKey), _shortcuts}};
  if (settings == _lastRead) return;
  const auto url = QFKSharedContainerURL::QFKMenuSettingsURL(_fileManager);
  if (!url) return;

  const auto data = writePropertyList(settings, PropertyListFormat::binary);
  if (!data) logWriteError(data.error().localizedDescription);
  // Without data the write fails, too, and logs a line of its own.
  const auto error = data ? _fileManager.write(*url, *data) : Error{"there is nothing to write"};
  if (error) {
    logWriteError(error->localizedDescription);
    return;
  }
  _lastRead = std::move(settings);
  _distributedNotificationCenter.post(SharedQFMenuPrefsChangedNotification);
}

void QFKMenuSettingsManager::setMenuIconID(std::int64_t iconID) {
  _menuIconID = iconID;
  writeSettings();
}

void QFKMenuSettingsManager::setMenuStyle(std::int64_t style) {
  _menuStyle = style;
  writeSettings();
}

std::optional<QFKShortcutActionItem> QFKMenuSettingsManager::shortcutForKey(
    std::string_view key) const {
  const Dictionary* record = _shortcuts.dictionary(key);
  if (!record) return std::nullopt;
  return QFKShortcutActionItem::itemFromDictionary(record);
}

void QFKMenuSettingsManager::updateShortcut(const std::optional<QFKShortcutActionItem>& item) {
  if (item && item->uuid) _shortcuts.set(*item->uuid, item->dictionary());
  writeSettings();
}

std::string QFKMenuSettingsManager::addShortcut() {
  const QFKShortcutActionItem item;
  _shortcutIDList.push_back(*item.uuid);
  setShortcut(item);
  return *item.uuid;
}

void QFKMenuSettingsManager::removeShortcutForKey(std::string_view key) {
  std::erase(_shortcutIDList, key);
  _shortcuts.remove(key);
  writeSettings();
}

void QFKMenuSettingsManager::moveShortcut(std::string_view key, std::size_t toIndex) {
  const auto found = std::find(_shortcutIDList.begin(), _shortcutIDList.end(), key);
  if (found == _shortcutIDList.end()) return;
  std::string moved = std::move(*found);
  _shortcutIDList.erase(found);
  const std::size_t index = std::min(toIndex, _shortcutIDList.size());
  _shortcutIDList.insert(_shortcutIDList.begin() + static_cast<std::ptrdiff_t>(index),
                         std::move(moved));
  writeSettings();
}

QFKShortcutActionItem QFKMenuSettingsManager::paletteShortcut() const {
  if (auto stored = shortcutForKey(paletteShortcutKey)) return *std::move(stored);
  QFKShortcutActionItem item;
  item.uuid = paletteShortcutKey;
  return item;
}

}  // namespace qf
