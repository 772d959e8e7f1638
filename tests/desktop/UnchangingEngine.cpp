// SPDX-License-Identifier: Apache-2.0
// An engine that takes every command and changes nothing: what the checks of the roads must notice.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>

class Application : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.quenfold.Application1")
  Q_PROPERTY(QString BundleIdentifier READ bundleIdentifier)
  Q_PROPERTY(int ProcessIdentifier READ processIdentifier)
  Q_PROPERTY(int ActivationPolicy READ activationPolicy)

 public:
  QString bundleIdentifier() const { return "org.quenfold.Quenfold"; }
  int processIdentifier() const { return static_cast<int>(QCoreApplication::applicationPid()); }
  int activationPolicy() const { return 1; }

 public slots:
  QByteArray HandleEvent(uint, uint, const QByteArray&) { return {}; }
};

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Application object;
  auto bus = QDBusConnection::sessionBus();
  bus.registerObject("/org/quenfold/Application", &object,
                     QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
  bus.interface()->registerService(object.bundleIdentifier(),
                                   QDBusConnectionInterface::QueueService);
  return QCoreApplication::exec();
}

#include "UnchangingEngine.moc"
