// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"
#include "host/Availability.h"

namespace qf {

class Bundle;
class DistributedNotificationCenter;
class FileManager;
class UserDefaultsDomains;
class Workspace;

/// What the window needs of the host. All outlive it.
struct WindowHost {
  using CleanClipboard = std::function<std::optional<Error>(std::string_view token)>;

  QDBusConnection bus;
  const Bundle& bundle;
  FileManager& fileManager;
  DistributedNotificationCenter& distributedNotificationCenter;
  UserDefaultsDomains& userDefaults;
  Workspace& workspace;
  std::filesystem::path customFile;  ///< a person's own cleaners and groups; empty for nowhere
  /// The engine's own services by name, asked anew each time.
  std::function<std::map<std::string, Availability>()> engineStates;
  /// Answers why the clipboard was left as it was.
  CleanClipboard cleanClipboard;
};

}  // namespace qf
