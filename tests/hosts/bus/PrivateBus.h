// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace qf::test {

/// A message bus of its own, open to every user, with a session bus's limits, that starts nothing
/// by itself. Programs started after it find it as their session bus.
class PrivateBus {
 public:
  PrivateBus() {
    QFile configuration(_folder.filePath("bus.conf"));
    if (!configuration.open(QIODevice::WriteOnly)) return;
    configuration.write(
        R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
<policy context="default"><allow user="*"/><allow own="*"/>
<allow send_destination="*"/><allow receive_sender="*"/></policy>
<limit name="max_incoming_bytes">1000000000</limit>
<limit name="max_outgoing_bytes">1000000000</limit>
<limit name="max_message_size">1000000000</limit></busconfig>)");
    configuration.close();
    _daemon.setProcessChannelMode(QProcess::SeparateChannels);
    _daemon.start("dbus-daemon",
                  {"--config-file=" + configuration.fileName(), "--nofork", "--print-address"});
    if (!_daemon.waitForReadyRead(10'000)) return;
    _address = QString::fromLocal8Bit(_daemon.readLine().trimmed());
    qputenv("DBUS_SESSION_BUS_ADDRESS", _address.toLocal8Bit());
  }
  ~PrivateBus() {
    _daemon.kill();
    _daemon.waitForFinished();
  }

  /// By its address: the bus library looks for the session bus only once in a process.
  QDBusConnection connect(const QString& name) const {
    return QDBusConnection::connectToBus(_address, name);
  }
  qint64 processIdentifier() const { return _daemon.processId(); }

 private:
  QTemporaryDir _folder;
  QProcess _daemon;
  QString _address;
};

}  // namespace qf::test
