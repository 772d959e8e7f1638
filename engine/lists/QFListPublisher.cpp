// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/QFListPublisher.h"

#include "engine/lists/ListData.h"
#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "host/Bundle.h"
#include "host/DistributedNotificationCenter.h"
#include "host/FileManager.h"
#include "hosts/linux/files/PrivateFiles.h"
#include "hosts/linux/files/UserLanguages.h"
#include "kit/DictionaryFile.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKSharedContainerURL.h"

namespace qf {

namespace {

/// Of the first of the person's languages that has them.
StringTable cleanerStrings(const Bundle& bundle, const FileManager& fileManager) {
  for (const std::string& language : userLanguages()) {
    const auto path = bundle.resource(language + ".lproj/Cleaners", "strings");
    const auto bytes = path ? fileManager.contents(*path) : std::nullopt;
    if (!bytes) continue;
    if (auto table = StringTable::read(*bytes)) return *std::move(table);
    log("The names of cleaners in " + path->string() + " cannot be read");
  }
  return {};
}

}  // namespace

QFListPublisher::QFListPublisher(const Bundle& bundle, FileManager& fileManager,
                                 DistributedNotificationCenter& distributedNotificationCenter)
    : _bundle(bundle),
      _fileManager(fileManager),
      _distributedNotificationCenter(distributedNotificationCenter) {}

Dictionary QFListPublisher::defaultListData(const Bundle& bundle, const FileManager& fileManager) {
  const auto defaults =
      dictionaryWithContentsOfURL(fileManager, bundle.resource("quenfold-lists-default", "plist"));
  if (!defaults) log("The default list of cleaners is missing among the program's resources");
  return localizedList(defaults.value_or(Dictionary()), cleanerStrings(bundle, fileManager));
}

void QFListPublisher::reload(const CustomLists& customLists) {
  _listData = withCustomLists(defaultListData(_bundle, _fileManager), customLists);
}

std::optional<Error> QFListPublisher::write() const {
  const auto url = QFKSharedContainerURL::QFKGroupsListURL(_fileManager);
  if (!url) return Error{"there is no shared folder"};
  const Result<Data> bytes = writePropertyList(Value(_listData), PropertyListFormat::xml);
  if (!bytes) return bytes.error();
  return replaceFile(*url, *bytes);
}

void QFListPublisher::publish() {
  const auto error = write();
  _availability = Availability::available();
  if (!error) return _distributedNotificationCenter.post(SharedGroupsDataChangedNotification);
  _availability = Availability::unavailable("The list of cleaners could not be published: " +
                                            error->localizedDescription);
  log(_availability.reason);
}

}  // namespace qf
