// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "foundation/Value.h"

namespace qf {

class Bundle;
class DistributedNotificationCenter;
class FileManager;

/// Holds the list data that the engine offers and puts it where every client reads it: the file in
/// the shared container, and a notification that it changed. docs/files.md has the format. Main
/// thread.
class QFListPublisher {
 public:
  /// The list among the program's resources; a fault is logged, and the list then is empty.
  static Dictionary defaultListData(const Bundle& bundle, const FileManager& fileManager);

  /// All must outlive the publisher.
  QFListPublisher(const Bundle& bundle, FileManager& fileManager,
                  DistributedNotificationCenter& distributedNotificationCenter);

  /// Reads everything again that the list is made of.
  void reload();
  const Dictionary& listData() const { return _listData; }

  /// Writes the file, as a whole or not at all, and tells everyone; a failure is logged and nobody
  /// told.
  void publish() const;

 private:
  const Bundle& _bundle;
  FileManager& _fileManager;
  DistributedNotificationCenter& _distributedNotificationCenter;
  Dictionary _listData;
};

}  // namespace qf
