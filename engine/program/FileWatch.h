// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <filesystem>
#include <functional>

namespace qf {

/// Tells of changes to one file, whether it is written, replaced, made or removed. Its folder must
/// be there. Main thread, from the run loop.
class FileWatch {
 public:
  /// The handler runs once for changes that follow within 50 ms of one another.
  FileWatch(const std::filesystem::path& file, std::function<void()> changed);

 private:
  void watchFile();

  QString _file;
  QFileSystemWatcher _watcher;
  QTimer _delay;
};

}  // namespace qf
