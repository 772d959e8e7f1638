// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QPalette>

namespace qf {

/// Has the process's windows be dark while the desktop prefers that, by the setting "color-scheme"
/// of XDG Desktop Portal's Settings interface: Qt does so by itself only under some desktops, and
/// then is left alone. Asks without waiting. Main thread, after the application object.
class ColorScheme final : public QObject {
  Q_OBJECT

 public:
  explicit ColorScheme(QDBusConnection bus);

 private slots:
  void settingChanged(const QDBusMessage& signal);

 private:
  void ask();
  void follow(const QVariant& value);

  QDBusConnection _bus;
  QPalette _usual;
  bool _isDarkened = false;
};

}  // namespace qf
