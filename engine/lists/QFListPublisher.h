// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "engine/lists/CustomLists.h"
#include "foundation/Error.h"
#include "foundation/Value.h"
#include "host/Availability.h"

namespace qf {

class Bundle;
class DistributedNotificationCenter;
class FileManager;

/// Holds the list data that the engine offers and puts it where every client reads it: the file in
/// the shared container, and a notification that it changed. docs/files.md has the format. Main
/// thread.
class QFListPublisher {
 public:
  /// The list among the program's resources, in the person's language; a fault is logged, and the
  /// list then is empty.
  static Dictionary defaultListData(const Bundle& bundle, const FileManager& fileManager);

  /// All must outlive the publisher.
  QFListPublisher(const Bundle& bundle, FileManager& fileManager,
                  DistributedNotificationCenter& distributedNotificationCenter);

  /// Makes the list anew: the default one, read again, and the person's own. A person's group that
  /// has the name of a built-in one is left out, with a line in the log.
  void reload(const CustomLists& customLists);
  const Dictionary& listData() const { return _listData; }

  /// Writes the file, as a whole or not at all, and tells everyone; a failure is logged and nobody
  /// told.
  void publish();
  /// Whether everyone can read the list as it is now.
  const Availability& availability() const { return _availability; }

 private:
  [[nodiscard]] std::optional<Error> write() const;

  const Bundle& _bundle;
  FileManager& _fileManager;
  DistributedNotificationCenter& _distributedNotificationCenter;
  Dictionary _listData;
  Availability _availability;
};

}  // namespace qf
