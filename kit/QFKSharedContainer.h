// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "foundation/Value.h"
#include "kit/QFKSharedContainerURL.h"

namespace qf {

class FileManager;
class UserDefaults;
class UserDefaultsDomains;

/// Reads the files that agent and engine share. Stateless: every call asks the system again. Any
/// thread, except for the user defaults (main thread).
class QFKSharedContainer {
 public:
  using URL = QFKSharedContainerURL::URL;

  static QFKSharedContainer& sharedManager();

  /// Both must outlive the container.
  QFKSharedContainer(FileManager& fileManager, UserDefaultsDomains& userDefaults);

  URL containerURL() const;
  URL containerURLForFile(std::string_view fileName) const;

  /// The menu settings as they stand in their file.
  std::optional<Value> QFKQFMenuSettings() const;
  /// The root of the property-list file, of any kind. Nothing when the file cannot be read; nothing
  /// and a log line when it is not a property list.
  std::optional<Value> QFKDictionaryForURL(const URL& url) const;

  /// A new object for the domain that the group shares, with its defaults registered.
  std::unique_ptr<UserDefaults> sharedQuenfoldDefaults() const;

 private:
  FileManager& _fileManager;
  UserDefaultsDomains& _userDefaults;
};

}  // namespace qf
