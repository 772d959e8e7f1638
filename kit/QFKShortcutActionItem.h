// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

/// A user's shortcut and its action: a plain value, stored as a record of the menu settings
/// (docs/files.md).
class QFKShortcutActionItem {
 public:
  static QFKShortcutActionItem itemFromDictionary(const Dictionary* record) {
    return QFKShortcutActionItem(record);
  }

  /// Applies the cleaner "#SCRUB", has no keys, and has a new `uuid`.
  QFKShortcutActionItem();
  /// Takes every property from the record; null counts as an empty record.
  explicit QFKShortcutActionItem(const Dictionary* record);

  /// The record. An unset `uuid` is stored as a new one each time.
  Dictionary dictionary() const;
  /// Made from the record, so that an unset `uuid` becomes a new one.
  QFKShortcutActionItem copy() const;
  std::string description() const;

  static constexpr std::int64_t appliesCleaner = 0;
  static constexpr std::int64_t popsUpGroup = 1;
  /// Stands for the group that the menu shows.
  static constexpr std::string_view currentGroup = "#current";

  std::int64_t type = appliesCleaner;  ///< any other than these two does nothing
  /// The cleaner's token; or the group's name, or `currentGroup`.
  std::optional<std::string> typeValue = "#SCRUB";
  bool hasShortcut = false;     ///< whether a combination was recorded
  std::uint64_t keycode = 0;    ///< virtual key code
  std::uint64_t modifiers = 0;  ///< as host/EventState.h lays them out
  std::optional<std::string> uuid;
};

}  // namespace qf
