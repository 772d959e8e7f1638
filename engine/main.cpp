// SPDX-License-Identifier: Apache-2.0
#include <QCoreApplication>
#include <iostream>

#include "engine/CommandLine.h"
#include "engine/CustomListsReader.h"
#include "engine/FileWatch.h"
#include "engine/ListData.h"
#include "engine/QFEngine.h"
#include "engine/Scripts.h"
#include "foundation/Log.h"
#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/files/XdgBundle.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "hosts/linux/files/XdgFolders.h"
#include "hosts/linux/pasteboard/XcbPasteboards.h"
#include "hosts/linux/workspace/LinuxWorkspace.h"
#include "kit/QFAgent.h"
#include "kit/QFKIdentifiers.h"

namespace {

using Mode = qf::CommandLine::Mode;

void logUnavailable(const qf::Availability& availability) {
  if (!availability.isAvailable) qf::log(availability.reason);
}

/// Where the person's own cleaners and groups are kept; empty where the person has no home folder.
std::filesystem::path customFile() {
  const auto folder = qf::xdgConfigHome();
  return folder ? *folder / "quenfold" / "cleaners.json" : std::filesystem::path();
}

/// With its folder, so that the file can be watched before it is there.
std::filesystem::path prepareCustomFile(qf::FileManager& fileManager) {
  const std::filesystem::path file = customFile();
  if (file.empty()) return file;
  if (const auto error = fileManager.createDirectory(file.parent_path())) {
    qf::log(error->localizedDescription);
  }
  return file;
}

/// The built-in cleaners and the person's own.
qf::QFCleanerLibrary wholeLibrary(const qf::FileManager& fileManager, qf::CustomLists& lists) {
  qf::QFCleanerLibrary library;
  const qf::QFCustomFile file(customFile(), fileManager);
  if (auto read = file.read(library.builtInCleaners())) {
    lists = *std::move(read);
  } else {
    qf::log(file.path().string() + ": " + read.error().localizedDescription);
  }
  library.setCustomCleaners(qf::makeCustomCleaners(lists, library.builtInCleaners()));
  return library;
}

/// This process among the session's programs.
struct Session {
  QDBusConnection bus = QDBusConnection::sessionBus();
  qf::BusApplications applications{bus, qf::engineBundleIdentifier,
                                   qf::ActivationPolicy::accessory};
  qf::DBusAppleEvents appleEvents{applications};
  qf::DBusDistributedNotificationCenter notifications{bus};
  qf::XdgBundle bundle;
  qf::XdgFileManager fileManager;
  qf::LinuxWorkspace workspace{
      applications, {.programFolder = QCoreApplication::applicationDirPath().toStdString()}};
};

/// The engine as one of this session's programs, until it is told to quit.
int runEngine(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Session session;
  qf::XcbPasteboards pasteboards;
  logUnavailable(session.applications.availability());
  logUnavailable(pasteboards.generalPasteboard().availability());

  // Queued, so that the command that asks for it is answered first.
  const auto terminate = [] {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  };
  const std::filesystem::path customFile = prepareCustomFile(session.fileManager);
  qf::QFEngine engine({session.appleEvents, session.bundle, session.notifications,
                       session.fileManager, pasteboards, session.workspace, customFile},
                      terminate);
  engine.start();
  const qf::FileWatch watch(customFile, [&engine] { engine.reload(); });
  if (const auto error =
          session.applications.registerInstance(qf::BusApplications::Instances::several)) {
    qf::log(error->localizedDescription);
    return 1;
  }
  return QCoreApplication::exec();
}

int clean(const qf::CommandLine& commandLine) {
  const qf::XdgFileManager fileManager;
  qf::CustomLists lists;
  const qf::QFCleanerLibrary library = wholeLibrary(fileManager, lists);
  if (commandLine.files.empty()) {
    return qf::cleanStream(library, commandLine.token, std::cin, std::cout);
  }
  return qf::cleanFiles(library, fileManager, commandLine.token, commandLine.files);
}

/// Sends the engine the command, starting it where it does not run.
int cleanClipboard(int argc, char** argv, const std::string& token) {
  QCoreApplication application(argc, argv);
  Session session;
  qf::CustomLists lists;
  if (token != qf::undoToken && !wholeLibrary(session.fileManager, lists).knows(token)) {
    qf::log("there is no cleaner \"" + token + '"');
    return 1;
  }
  int exitCode = 0;
  const auto fail = [&exitCode](const std::string& reason) {
    qf::log(reason);
    exitCode = 1;
  };
  session.workspace.setLaunchFailureHandler(fail);
  session.appleEvents.setFailureHandler(
      [&fail](qf::AppleEventStatus, const std::string& reason) { fail(reason); });
  qf::QFAgent agent({session.appleEvents, session.bundle, session.notifications,
                     session.fileManager, session.workspace});
  agent.setupConnection();
  agent.cleanClipboardWithCleaner(token);
  return exitCode;
}

int list() {
  const qf::XdgBundle bundle;
  const qf::XdgFileManager fileManager;
  qf::CustomLists lists;
  wholeLibrary(fileManager, lists);
  return qf::listCleaners(
      qf::withCustomLists(qf::QFListPublisher::defaultListData(bundle, fileManager), lists),
      std::cout);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);  // or reading a large text takes longer than cleaning it
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
    case Mode::cleanClipboard:
      return cleanClipboard(argc, argv, commandLine->token);
    case Mode::window:
      qf::log("This build of the engine has no window: it runs in the background.");
      break;
    case Mode::agent:
      break;
  }
  return runEngine(argc, argv);
}
