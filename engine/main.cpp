// SPDX-License-Identifier: Apache-2.0
#include <QCoreApplication>
#include <iostream>

#include "engine/CommandLine.h"
#include "engine/QFEngine.h"
#include "engine/Scripts.h"
#include "foundation/Log.h"
#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/files/XdgBundle.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "hosts/linux/pasteboard/XcbPasteboards.h"
#include "hosts/linux/workspace/LinuxWorkspace.h"
#include "kit/QFKIdentifiers.h"

namespace {

using Mode = qf::CommandLine::Mode;

void logUnavailable(const qf::Availability& availability) {
  if (!availability.isAvailable) qf::log(availability.reason);
}

/// The engine as one of this session's programs, until it is told to quit.
int runEngine(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QDBusConnection bus = QDBusConnection::sessionBus();
  qf::BusApplications applications(bus, qf::engineBundleIdentifier,
                                   qf::ActivationPolicy::accessory);
  qf::DBusAppleEvents appleEvents(applications);
  qf::DBusDistributedNotificationCenter notifications(bus);
  qf::XdgBundle bundle;
  qf::XdgFileManager fileManager;
  qf::XcbPasteboards pasteboards;
  qf::LinuxWorkspace workspace(
      applications, {.programFolder = QCoreApplication::applicationDirPath().toStdString()});
  logUnavailable(applications.availability());
  logUnavailable(pasteboards.generalPasteboard().availability());

  // Queued, so that the command that asks for it is answered first.
  const auto terminate = [] {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  };
  qf::QFEngine engine({appleEvents, bundle, notifications, fileManager, pasteboards, workspace},
                      terminate);
  engine.start();
  if (const auto error = applications.registerInstance(qf::BusApplications::Instances::several)) {
    qf::log(error->localizedDescription);
    return 1;
  }
  return QCoreApplication::exec();
}

int clean(const qf::CommandLine& commandLine) {
  const qf::QFCleanerLibrary library;
  if (commandLine.files.empty()) {
    return qf::cleanStream(library, commandLine.token, std::cin, std::cout);
  }
  return qf::cleanFiles(library, qf::XdgFileManager(), commandLine.token, commandLine.files);
}

int list() {
  const qf::XdgBundle bundle;
  const qf::XdgFileManager fileManager;
  return qf::listCleaners(qf::QFListPublisher::defaultListData(bundle, fileManager), std::cout);
}

}  // namespace

int main(int argc, char** argv) {
  const auto commandLine = qf::parseCommandLine({argv + 1, argv + argc});
  if (!commandLine) {
    std::cerr << "quenfold: " << commandLine.error().localizedDescription << '\n';
    return 2;
  }
  switch (commandLine->mode) {
    case Mode::help:
      std::cout << qf::commandLineHelp;
      return 0;
    case Mode::version:
      std::cout << "quenfold " QF_VERSION "\n";
      return 0;
    case Mode::list:
      return list();
    case Mode::clean:
      return clean(*commandLine);
    case Mode::window:
      qf::log("This build of the engine has no window: it runs in the background.");
      break;
    case Mode::agent:
      break;
  }
  return runEngine(argc, argv);
}
