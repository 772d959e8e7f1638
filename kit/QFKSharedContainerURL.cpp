// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKSharedContainerURL.h"

#include "foundation/Log.h"
#include "host/FileManager.h"
#include "kit/QFKIdentifiers.h"

namespace qf {

using URL = QFKSharedContainerURL::URL;

URL QFKSharedContainerURL::baseContainerURL(const FileManager& fileManager) {
  return fileManager.containerURLForSecurityApplicationGroupIdentifier(applicationGroupIdentifier);
}

URL QFKSharedContainerURL::containerURL(FileManager& fileManager) {
  const URL base = baseContainerURL(fileManager);
  if (!base) return std::nullopt;
  const std::filesystem::path folder = *base / "Data";
  if (const auto error = fileManager.createDirectory(folder)) {
    log("Error setting up shared folder: " + error->localizedDescription);
  }
  return folder;
}

URL QFKSharedContainerURL::containerURLForFile(FileManager& fileManager,
                                               std::string_view fileName) {
  const URL folder = containerURL(fileManager);
  if (!folder) return std::nullopt;
  return *folder / fileName;
}

URL QFKSharedContainerURL::QFKMenuSettingsURL(FileManager& fileManager) {
  return containerURLForFile(fileManager, "quenfold-menu.plist");
}

URL QFKSharedContainerURL::QFKGroupsListURL(FileManager& fileManager) {
  return containerURLForFile(fileManager, "quenfold-lists.plist");
}

}  // namespace qf
