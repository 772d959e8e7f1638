// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKClientRemote.h"

#include "kit/DictionaryFile.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKSharedContainerURL.h"

namespace qf {

void QFKClientRemote::prepareCustomOptions() {
  setReceivesCommands(true);
  setRemoteAppHasAgentMode(true);
  setRemoteAppBundleIdentifier(engineBundleIdentifier);
}

std::optional<Dictionary> QFKClientRemote::readListData() {
  FileManager& fileManager = services().fileManager;
  if (auto data = dictionaryWithContentsOfURL(
          fileManager, QFKSharedContainerURL::QFKGroupsListURL(fileManager))) {
    return data;
  }
  return defaultListData();
}

Dictionary QFKClientRemote::readQFMenuSettings() {
  FileManager& fileManager = services().fileManager;
  return dictionaryWithContentsOfURL(fileManager,
                                     QFKSharedContainerURL::QFKMenuSettingsURL(fileManager))
      .value_or(defaultQFMenuSettings());
}

}  // namespace qf
