// SPDX-License-Identifier: Apache-2.0
#include "engine/program/RunEngine.h"

#include <QApplication>
#include <csignal>
#include <memory>

#include "engine/lists/CustomFilePath.h"
#include "engine/program/EngineHost.h"
#include "engine/program/EngineWindow.h"
#include "engine/program/FileWatch.h"
#include "engine/program/QFEngine.h"
#include "engine/window/QFWindow.h"
#include "engine/window/WindowKeeper.h"
#include "engine/window/WindowStyle.h"
#include "engine/window/models/Autostart.h"
#include "foundation/Log.h"
#include "hosts/linux/accessibility/bus/HungAccessibility.h"
#include "hosts/linux/bus/BusApplicationObject.h"
#include "hosts/linux/clipboard/XcbPasteboards.h"
#include "hosts/linux/desktop/EndSignals.h"
#include "hosts/linux/files/LocalCrashReporter.h"
#include "hosts/linux/files/UserLanguages.h"
#include "hosts/linux/x11/X11Display.h"
#include "hosts/qt/PrimarySelection.h"
#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"
#include "hosts/qt/Translations.h"
#include "kit/QFKSharedContainer.h"

namespace qf {
namespace {

void logUnavailable(const Availability& availability) {
  if (!availability.isAvailable) log(availability.reason);
}

/// Where there is no display.
class NoWindow final : public EngineWindow {
 public:
  explicit NoWindow(std::string reason) : _reason(std::move(reason)) {}

  void show() override { log("The window cannot be shown. " + _reason); }
  void showPreferences() override { show(); }

 private:
  std::string _reason;
};

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv,
                                                  const Availability& display) {
  if (!display.isAvailable) return std::make_unique<QCoreApplication>(argc, argv);
  shunHungAccessibility();
  auto application = std::make_unique<QApplication>(argc, argv);
  leavePrimarySelectionAlone();
  QApplication::setStyle(new WindowStyle);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setApplicationDisplayName("Quenfold");
  installTranslations(XdgBundle::resourcesFolder() / "translations", userLanguages());
  QGuiApplication::setDesktopFileName(QString::fromUtf8(engineBundleIdentifier.data()));
  return application;
}

using States = std::map<std::string, Availability>;

std::unique_ptr<EngineWindow> makeWindow(EngineHost& host, const Availability& display,
                                         std::function<States()> engineStates,
                                         WindowHost::CleanClipboard cleanClipboard) {
  if (!display.isAvailable) return std::make_unique<NoWindow>(display.reason);
  const WindowHost windowHost{
      .bus = host.bus,
      .bundle = host.bundle,
      .fileManager = host.fileManager,
      .distributedNotificationCenter = host.notifications,
      .userDefaults = host.userDefaults,
      .workspace = host.workspace,
      .customFile = customFilePath(),
      .engineStates = std::move(engineStates),
      .cleanClipboard = std::move(cleanClipboard),
  };
  return std::make_unique<WindowKeeper>(
      [windowHost] { return std::make_unique<QFWindow>(windowHost); },
      [&host](ActivationPolicy policy) { host.applications.setActivationPolicy(policy); });
}

/// With its folder, so that the file can be watched before it is there.
std::filesystem::path prepareCustomFile(FileManager& fileManager) {
  const std::filesystem::path file = customFilePath();
  if (file.empty()) return file;
  if (const auto error = fileManager.createDirectory(file.parent_path())) {
    log(error->localizedDescription);
  }
  return file;
}

/// Who starts the engine from the desktop's menu wants the icon in the tray too, unless it is
/// switched off.
void startAgent(EngineHost& host) {
  if (!host.applications.owners(agentBundleIdentifier).isEmpty()) return;
  if (Autostart(Autostart::usualPlaces({})).isSwitchedOff()) return;
  const auto agent = host.workspace.URLForApplicationWithBundleIdentifier(agentBundleIdentifier);
  if (!agent) return log("The menu is not installed");
  const auto error =
      host.workspace.launchApplicationAtURL(*agent, {LaunchOptions::asynchronous, {}});
  if (error) log(error->localizedDescription);
}

void showFirst(EngineWindow& window, EngineHost& host) {
  const QFKSharedContainer container(host.fileManager, host.userDefaults);
  const auto defaults = container.sharedQuenfoldDefaults();
  const auto isSet = [&defaults](std::string_view key) {
    const auto value = defaults->objectForKey(key);
    return value && value->boolValue();
  };
  if (isSet(showPreferencesDefault)) return window.showPreferences();
  if (!isSet(launchAsAgentDefault)) window.show();
}

/// Whether this process is one of the running engines from now on; else another one shows itself.
bool joinSession(EngineHost& host, FirstShown firstShown, int& exitCode) {
  const auto instances = firstShown == FirstShown::window ? BusApplications::Instances::one
                                                          : BusApplications::Instances::several;
  const auto error = host.applications.registerInstance(instances);
  if (!error) return true;
  log(error->localizedDescription);
  const bool isHandedOver = firstShown == FirstShown::window &&
                            !host.applications.owners(engineBundleIdentifier).isEmpty();
  if (isHandedOver) host.applications.reopenRunningInstance();
  exitCode = isHandedOver ? 0 : 1;
  return false;
}

}  // namespace

int runEngine(int argc, char** argv, FirstShown firstShown) {
  const Availability display = x11Display();
  const auto application = makeApplication(argc, argv, display);
  const EndSignals endSignals;
  // The log goes to the process that started this one, which may have ended since.
  std::signal(SIGPIPE, SIG_IGN);
  LocalCrashReporter("quenfold", QF_VERSION).start();
  EngineHost host;
  if (firstShown == FirstShown::window && display.isAvailable) startAgent(host);
  if (firstShown == FirstShown::window &&
      !host.applications.owners(engineBundleIdentifier).isEmpty()) {
    host.applications.reopenRunningInstance();
    return 0;
  }
  XcbPasteboards pasteboards;
  logUnavailable(host.applications.availability());
  logUnavailable(pasteboards.generalPasteboard().availability());

  // Queued, so that the command that asks for it is answered first.
  const auto terminate = [] {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  };
  QFEngine* serving = nullptr;
  const auto states = [&] {
    return States{{"AppleEvents", host.appleEvents.availability()},
                  {"DistributedNotifications", host.notifications.availability()},
                  {"Lists", serving->listAvailability()},
                  {"Pasteboard", pasteboards.generalPasteboard().availability()}};
  };
  const auto window = makeWindow(host, display, states, [&serving](std::string_view token) {
    return serving->cleanClipboard(token);
  });
  const std::filesystem::path customFile = prepareCustomFile(host.fileManager);
  const auto tell = [&host](const std::string& reason) {
    host.notice.tellInstead(reasonText(toQString(reason)).toStdString());
  };
  QFEngine engine({host.appleEvents, host.bundle, host.notifications, host.fileManager, pasteboards,
                   host.workspace, *window, host.appleEvents.servedEvent(), tell, customFile},
                  terminate);
  serving = &engine;
  engine.start();
  const FileWatch watch(customFile, [&engine] { engine.reload(); });
  host.applications.object().setReopenHandler([&window] { window->show(); });
  int exitCode = 0;
  if (!joinSession(host, firstShown, exitCode)) return exitCode;
  if (firstShown == FirstShown::window) showFirst(*window, host);
  return QCoreApplication::exec();
}

}  // namespace qf
