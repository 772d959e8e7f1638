// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Value.h"
#include "kit/QFKShortcutActionItem.h"

namespace qf {

class DistributedNotificationCenter;
class FileManager;
class QFKSharedContainer;

/// The agent's settings and their file (docs/files.md). Every change is written at once and
/// announced to all processes. Agent and engine both write: call `readSettings` right before a
/// change, or it undoes the other's. Main thread.
class QFKMenuSettingsManager {
 public:
  static constexpr std::string_view paletteShortcutKey = "palette-shortcut";

  static QFKMenuSettingsManager& sharedManager();

  /// Empty settings; the file is read by `readSettings`. All must outlive the manager.
  QFKMenuSettingsManager(const QFKSharedContainer& container, FileManager& fileManager,
                         DistributedNotificationCenter& distributedNotificationCenter);

  /// A file that is missing or not readable gives empty settings.
  void readSettings();
  /// Does nothing when the settings have not changed since they were last read or written.
  void writeSettings();

  std::int64_t menuIconID() const { return _menuIconID; }
  void setMenuIconID(std::int64_t iconID);
  std::int64_t menuStyle() const { return _menuStyle; }
  void setMenuStyle(std::int64_t style);

  /// The user's shortcuts in order, without the palette's. A key may lack a record.
  std::vector<std::string> shortcutIDList() const { return _shortcutIDList; }
  /// A copy; `setShortcut` stores a changed one.
  std::optional<QFKShortcutActionItem> shortcutForKey(std::string_view key) const;
  void setShortcut(const std::optional<QFKShortcutActionItem>& item) { updateShortcut(item); }
  /// Stores the item under its `uuid`; one without a `uuid` is not stored.
  void updateShortcut(const std::optional<QFKShortcutActionItem>& item);
  /// Adds a shortcut with default values and returns its key.
  std::string addShortcut();
  void removeShortcutForKey(std::string_view key);
  /// Moves the key to that index of the list, at most to the end. Does nothing for an unknown key.
  void moveShortcut(std::string_view key, std::size_t toIndex);

  QFKShortcutActionItem paletteShortcut() const;
  void setPaletteShortcut(const QFKShortcutActionItem& item) { setShortcut(item); }

 private:
  const QFKSharedContainer& _container;
  FileManager& _fileManager;
  DistributedNotificationCenter& _distributedNotificationCenter;

  std::int64_t _menuIconID = 0;
  std::int64_t _menuStyle = 0;
  std::vector<std::string> _shortcutIDList;
  Dictionary _shortcuts;
  std::optional<Dictionary> _lastRead;
};

}  // namespace qf
