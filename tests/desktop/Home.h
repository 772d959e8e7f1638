// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace qf::desktop {

// Files of the session's home.

inline QString home(const QString& path) { return qEnvironmentVariable("HOME") + '/' + path; }

inline const QString dataFolder = ".local/share/group.org.quenfold/Data";
inline const QString cleanersFile = ".config/quenfold/cleaners.json";

inline const QString autostartEntry = ".config/autostart/org.quenfold.Menu.desktop";

inline QByteArray contents(const QString& path) {
  QFile file(home(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void put(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(home(path)).path());
  QFile file(home(path));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

}  // namespace qf::desktop
