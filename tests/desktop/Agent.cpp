// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Agent.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QThread>
#include <stdexcept>

namespace qf::desktop {
namespace {

QRect geometryOfWindow(const QString& window) {
  const QString geometry = output("xdotool", {"getwindowgeometry", "--shell", window});
  QMap<QString, int> values;
  for (const QString& line : geometry.split('\n')) {
    values[line.section('=', 0, 0)] = line.section('=', 1).toInt();
  }
  return {values["X"], values["Y"], values["WIDTH"], values["HEIGHT"]};
}

}  // namespace

QString Agent::builtProgram(const QString& name) {
  return QCoreApplication::applicationDirPath() + "/" + name;
}

QString Agent::services() {
  QDBusInterface status("org.quenfold.Menu", "/org/quenfold/Status",
                        "org.freedesktop.DBus.Properties");
  const QDBusReply<QDBusVariant> reply = status.call("Get", "org.quenfold.Status1", "Services");
  const auto map = reply.value().variant().value<QDBusArgument>();
  QString text;
  map.beginMap();
  while (!map.atEnd()) {
    QString name, reason;
    bool isAvailable = false;
    map.beginMapEntry();
    map >> name;
    map.beginStructure();
    map >> isAvailable >> reason;
    map.endStructure();
    map.endMapEntry();
    text += QString("\"%1\" %2 \"%3\" ").arg(name, isAvailable ? "true" : "false", reason);
  }
  map.endMap();
  return text;
}

Agent::Agent(const QString& program) : _program(program, {}) {
  if (!until([this] { return !trayIcon().isNull(); }, 15s)) {
    throw std::runtime_error("no icon in the tray: " + _program.printed().toStdString());
  }
}

QPoint Agent::trayIcon() const {
  const QString pid = QString::number(_program.processIdentifier());
  // The icon's window sits in the panel, so that only its class tells whose it is.
  const QStringList windows =
      output("xdotool", {"search", "--onlyvisible", "--class", "quenfold-menu"})
          .split('\n', Qt::SkipEmptyParts);
  for (const QString& window : windows) {
    const QRect geometry = geometryOfWindow(window);
    if (geometry.width() >= 16 && geometry.width() <= 64) return geometry.center();
  }
  return {};
}

void Agent::openMenu(const QString& heldKey) {
  if (!heldKey.isEmpty()) keyboard::hold(heldKey);
  mouse::click(trayIcon());
  const bool isOpen = until([this] { return shows("Quit"); });
  if (!heldKey.isEmpty()) keyboard::release(heldKey);
  if (!isOpen) throw std::runtime_error("the menu did not open");
}

Accessible Agent::menuEntry(const QString& title) const {
  auto entry = showing(title);
  if (!entry) throw std::runtime_error("no entry \"" + title.toStdString() + "\" in the menu");
  return *entry;
}

void Agent::pick(const QString& title, const QString& heldKey, const QString& picture) {
  openMenu(heldKey);
  if (!picture.isEmpty()) screenshot(picture);
  mouse::click(menuEntry(title).screenExtents().center());
}

QStringList engines() {
  QDBusInterface bus("org.freedesktop.DBus", "/", "org.freedesktop.DBus");
  return QDBusReply<QStringList>(bus.call("ListQueuedOwners", "org.quenfold.Quenfold")).value();
}

QString agentWithEngine(const QTemporaryDir& prefix, const QString& engine) {
  const QString program = prefix.filePath("bin/quenfold-menu");
  QDir(prefix.path()).mkpath("bin");
  QDir(prefix.path()).mkpath("share/applications");
  QFile::copy(Agent::builtProgram("quenfold-menu"), program);
  QFile::link(Agent::builtProgram("../share/quenfold"), prefix.filePath("share/quenfold"));
  QFile entry(prefix.filePath("share/applications/org.quenfold.Quenfold.desktop"));
  if (!entry.open(QIODevice::WriteOnly)) return {};
  entry.write(("[Desktop Entry]\nType=Application\nName=Engine\nExec=" + engine + "\n").toUtf8());
  return program;
}

}  // namespace qf::desktop
