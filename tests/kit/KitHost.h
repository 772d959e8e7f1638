// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyList.h"
#include "kit/QFKClientServices.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "tests/support/FakeHost.h"

namespace qf {

inline const std::filesystem::path dataFolder = "/data/group.org.quenfold/Data";
inline const std::filesystem::path listsFile = dataFolder / "quenfold-lists.plist";
inline const std::filesystem::path menuFile = dataFolder / "quenfold-menu.plist";

/// A host in memory with what the kit asks of it.
struct KitHost : FakeHost {
  void put(const std::filesystem::path& path, const Value& value) {
    fileManager.files[path] = *writePropertyList(value, PropertyListFormat::binary);
  }
  /// The engine's process joins those that run.
  void runEngine(std::int32_t process, ActivationPolicy policy = ActivationPolicy::accessory) {
    workspace.applications.push_back(
        {std::string(engineBundleIdentifier), "Quenfold", process, policy});
  }
  /// The message of the event sent last.
  std::string lastMessage() const {
    return unarchiveKeyed(appleEvents.sent.back().event.data)->description();
  }

  QFKClientServices clientServices{appleEvents, bundle, distributedNotificationCenter, fileManager,
                                   workspace};
  QFKSharedContainer container{fileManager, userDefaults};
};

}  // namespace qf
