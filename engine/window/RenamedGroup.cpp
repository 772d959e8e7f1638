// SPDX-License-Identifier: Apache-2.0
#include "engine/window/RenamedGroup.h"

#include "engine/window/MenuSettings.h"

namespace qf {

std::optional<Error> followRenamedGroup(MenuSettings& settings, const std::string& formerName,
                                        const std::string& name) {
  return settings.change([&](QFKMenuSettingsManager& manager) {
    for (const std::string& key : manager.shortcutIDList()) {
      auto item = manager.shortcutForKey(key);
      const bool isMeant =
          item && item->type == QFKShortcutActionItem::popsUpGroup && item->typeValue == formerName;
      if (!isMeant) continue;
      item->typeValue = name;
      manager.setShortcut(item);
    }
  });
}

}  // namespace qf
