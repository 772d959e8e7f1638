// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKSharedContainer.h"

#include <string>
#include <utility>

#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "foundation/SharedInstance.h"
#include "host/FileManager.h"
#include "host/UserDefaults.h"
#include "kit/FileURL.h"
#include "kit/QFKIdentifiers.h"

namespace qf {

QFKSharedContainer& QFKSharedContainer::sharedManager() {
  return SharedInstance<QFKSharedContainer>::get();
}

QFKSharedContainer::QFKSharedContainer(FileManager& fileManager, UserDefaultsDomains& userDefaults)
    : _fileManager(fileManager), _userDefaults(userDefaults) {}

QFKSharedContainer::URL QFKSharedContainer::containerURL() const {
  return QFKSharedContainerURL::containerURL(_fileManager);
}

QFKSharedContainer::URL QFKSharedContainer::containerURLForFile(std::string_view fileName) const {
  return QFKSharedContainerURL::containerURLForFile(_fileManager, fileName);
}

std::optional<Value> QFKSharedContainer::QFKQFMenuSettings() const {
  return QFKDictionaryForURL(QFKSharedContainerURL::QFKMenuSettingsURL(_fileManager));
}

std::optional<Value> QFKSharedContainer::QFKDictionaryForURL(const URL& url) const {
  if (!url) return std::nullopt;
  const auto data = _fileManager.contents(*url);
  if (!data) return std::nullopt;
  auto content = readPropertyList(*data);
  if (!content) {
    log("Error reading " + fileURLString(*url) + " : " + content.error().localizedDescription);
    return std::nullopt;
  }
  return *std::move(content);
}

std::unique_ptr<UserDefaults> QFKSharedContainer::sharedQuenfoldDefaults() const {
  auto defaults = _userDefaults.suite(applicationGroupIdentifier);
  defaults->registerDefaults(
      {{std::string(launchAsAgentDefault), false}, {std::string(showPreferencesDefault), false}});
  return defaults;
}

}  // namespace qf
