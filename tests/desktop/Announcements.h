// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QStringList>

namespace qf::desktop {

/// What a screen reader is asked to say, as "text, address of the one who asks".
class Announcements : public QObject {
  Q_OBJECT

 public:
  Announcements();
  QStringList heard;

 private slots:
  void hear(const QDBusMessage& message);
};

}  // namespace qf::desktop
