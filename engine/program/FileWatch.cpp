// SPDX-License-Identifier: Apache-2.0
#include "engine/program/FileWatch.h"

#include <QFile>

namespace qf {

FileWatch::FileWatch(const std::filesystem::path& file, std::function<void()> changed)
    : _file(QFile::decodeName(file.c_str())) {
  if (file.empty()) return;
  _delay.setSingleShot(true);
  _delay.setInterval(50);
  QObject::connect(&_delay, &QTimer::timeout, [this, changed = std::move(changed)] {
    watchFile();
    changed();
  });
  const auto start = [this] { _delay.start(); };
  QObject::connect(&_watcher, &QFileSystemWatcher::fileChanged, &_delay, start);
  QObject::connect(&_watcher, &QFileSystemWatcher::directoryChanged, &_delay, start);
  _watcher.addPath(QFile::decodeName(file.parent_path().c_str()));
  watchFile();
}

/// A file that was replaced is another one to the watcher.
void FileWatch::watchFile() {
  if (!_watcher.files().contains(_file) && QFile::exists(_file)) _watcher.addPath(_file);
}

}  // namespace qf
