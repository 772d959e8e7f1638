// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/RenamedGroup.h"

#include "engine/window/models/MenuSettings.h"
#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

void followInMenu(const std::string& formerName, const std::string& name) {
  PropertyListUserDefaultsDomains domains{std::string(agentBundleIdentifier)};
  UserDefaults& agent = domains.standardUserDefaults();
  if (agent.objectForKey(selectedGroupDefault) == Value(formerName)) {
    agent.setObject(Value(name), selectedGroupDefault);
  }
}

}  // namespace

std::optional<Error> followRenamedGroup(MenuSettings& settings, const std::string& formerName,
                                        const std::string& name) {
  followInMenu(formerName, name);
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
