// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "foundation/Error.h"
#include "kit/QFKShortcutActionItem.h"
#include "shortcuts/MASShortcut.h"

namespace qf {

class MenuSettings;

/// The shortcuts of the menu settings, by the keys under which these hold them. What somebody has
/// removed meanwhile is not made anew by a change. Main thread.
class ShortcutsModel final : public QObject {
  Q_OBJECT

 public:
  /// Why a change was not stored.
  using Failure = std::optional<Error>;

  /// The settings outlive the model.
  explicit ShortcutsModel(MenuSettings& settings);

  static bool isPalette(const QFKShortcutActionItem& item);
  /// The palette's, then the person's own in their order; the `uuid` of each is its key.
  std::vector<QFKShortcutActionItem> items() const;

  /// Nothing clears the keys.
  Failure record(const std::string& key, const std::optional<MASShortcut>& shortcut);
  Failure setAction(const std::string& key, std::int64_t type, const std::string& typeValue);
  /// Adds one at the end, which becomes `key`.
  Failure add(std::string& key);
  Failure remove(const std::string& key);
  /// By so many places towards the end, or towards the start where it is negative.
  Failure move(const std::string& key, int places);

 signals:
  /// By anyone.
  void changed();

 private:
  Failure edit(const std::string& key, const std::function<void(QFKShortcutActionItem&)>& change);

  MenuSettings& _settings;
};

}  // namespace qf
