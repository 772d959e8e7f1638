// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/LinuxHost.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "foundation/Log.h"
#include "foundation/Value.h"
#include "hosts/linux/X11Surroundings.h"
#include "hosts/linux/accessibility/bus/HungAccessibility.h"
#include "hosts/linux/accessibility/elements/AtspiAccessibility.h"
#include "hosts/linux/bus/BusApplicationObject.h"
#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/bus/DBusServicesMenu.h"
#include "hosts/linux/bus/StatusReport.h"
#include "hosts/linux/bus/UserNotice.h"
#include "hosts/linux/clipboard/XcbPasteboards.h"
#include "hosts/linux/desktop/ColorScheme.h"
#include "hosts/linux/desktop/DesktopTraySystem.h"
#include "hosts/linux/desktop/EndSignals.h"
#include "hosts/linux/desktop/LinuxWorkspace.h"
#include "hosts/linux/files/LocalCrashReporter.h"
#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "hosts/linux/files/UserLanguages.h"
#include "hosts/linux/files/XdgBundle.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "hosts/linux/keys/DesktopHotKeys.h"
#include "hosts/linux/keys/XcbHotKeys.h"
#include "hosts/linux/keys/XkbKeyboardLayout.h"
#include "hosts/linux/request/CleanRequest.h"
#include "hosts/linux/request/RequestDefaults.h"
#include "hosts/linux/x11/X11Display.h"
#include "hosts/linux/x11/X11PanelSystem.h"
#include "hosts/qt/AddedModifiers.h"
#include "hosts/qt/QtApplication.h"
#include "hosts/qt/QtEventState.h"
#include "hosts/qt/QtMainQueue.h"
#include "hosts/qt/QtMenuPresenter.h"
#include "hosts/qt/QtPaletteWindows.h"
#include "hosts/qt/QtSound.h"
#include "hosts/qt/QtStatusBar.h"
#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"
#include "hosts/qt/ServiceNames.h"
#include "hosts/qt/Translations.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr const char* iconName = "org.quenfold.Quenfold";
constexpr std::string_view endsOnExceptionsDefault = "NSApplicationCrashOnExceptions";
// A panel may start after the agent when a session begins.
constexpr auto trayPatience = 10s;

std::filesystem::path programFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

}  // namespace

/// What stands before the other services are made: a second instance ends here.
struct LinuxHost::Core {
  Core(int& argc, char** argv, Program identity)
      : program(identity),
        application((shunHungAccessibility(), argc), argv),
        bus(QDBusConnection::sessionBus()),
        applications(bus, program.bundleIdentifier, program.activationPolicy) {
    installTranslations(XdgBundle::resourcesFolder() / "translations", userLanguages());
    applications.object().setReopenHandler([this] { application.reopen(); });
  }

  Program program;
  QtApplication application;
  EndSignals endSignals;
  QDBusConnection bus;
  BusApplications applications;
};

struct LinuxHost::Backends {
  explicit Backends(Core& core)
      : program(core.program),
        crashReporter(std::string(program.name), std::string(program.version)),
        userDefaults(program.bundleIdentifier),
        appleEvents(core.applications),
        distributedNotificationCenter(core.bus),
        workspace(core.applications, {.programFolder = programFolder()}),
        surroundings(workspace, pasteboards.generalPasteboard()),
        request(pasteboards.generalPasteboard(), surroundings),
        accessibility(pasteboards.generalPasteboard(), workspace, request),
        hotKeys(mainQueue),
        keyboardLayout(hotKeys.keyboard()),
        symbolicHotKeys(core.bus, hotKeys.keyboard()),
        paletteWindows(
            panelSystem, addedModifiers,
            {.takesKeyboard = [this] { return isOn(paletteTakesKeyboardDefault, false); },
             .fault = [this] { return installationFault(); }}),
        servicesMenu(core.bus, pasteboards),
        traySystem(core.bus),
        statusBar(traySystem),
        colorScheme(core.bus),
        notice(core.bus, "Quenfold", iconName),
        statusReport(core.bus, [this] { return states(); }),
        host{.accessibility = accessibility,
             .appleEvents = appleEvents,
             .application = core.application,
             .bundle = bundle,
             .crashReporter = crashReporter,
             .distributedNotificationCenter = distributedNotificationCenter,
             .eventState = eventState,
             .fileManager = fileManager,
             .hotKeys = hotKeys,
             .keyboardLayout = keyboardLayout,
             .mainQueue = mainQueue,
             .menuPresenter = menuPresenter,
             .paletteWindows = paletteWindows,
             .pasteboards = pasteboards,
             .servicesMenu = servicesMenu,
             .shortcutReport = statusReport,
             .sound = sound,
             .statusBar = statusBar,
             .symbolicHotKeys = symbolicHotKeys,
             .userDefaults = userDefaults,
             .workspace = workspace} {
    workspace.setLaunchFailureHandler([this](const std::string& reason) {
      isLaunchFailureTold = true;
      note(Availability::unavailable(reason), engineOutcome);
    });
    bindRequests();
    accessibility.setOutcomeHandler(
        [this](const Availability& outcome) { note(outcome, roadOutcome); });
    accessibility.setPromptHandler(
        [this](const Availability& state) { tell("Accessibility", state); });
    appleEvents.setOutcomeHandler([this](AppleEventStatus status, const std::string& reason) {
      // That nobody took the command of an engine that did not start is no news.
      const bool isTold = std::exchange(isLaunchFailureTold, false);
      if (status == AppleEventStatus::noError)
        return note(Availability::available(), engineOutcome);
      if (!isTold || status != AppleEventStatus::processNotFound)
        note(Availability::unavailable(reason), engineOutcome);
    });
    core.application.setEndsOnExceptions([this] { return isOn(endsOnExceptionsDefault, true); });
    workspace.observeActivation([this] { showFaults(); });
    for (const auto& [name, availability] : states()) {
      if (!availability.isAvailable) log(name + ": " + availability.reason);
    }
    // Once the main loop runs and hot keys are registered.
    QTimer::singleShot(0, &statusBar, [this] {
      showFaults();
      if (const auto state = installation(); !state.isAvailable) tell("Installation", state);
    });
    QTimer::singleShot(trayPatience, &statusBar, [this, &application = core.application] {
      const Availability tray = statusBar.availability();
      if (tray.isAvailable) return;
      tell("StatusBar", tray);
      application.reopen();
    });
  }

  ~Backends() { appleEvents.setHintsExchange(nullptr); }

  void bindRequests() {
    appleEvents.setHintsExchange(&request);
    workspace.setActivationVeto([this] { return request.declinesActivation(); });
    hotKeys.setGate({[this] { return request.isRunning(); }, [this] { return request.count(); },
                     [this](std::uint32_t window) { return workspace.isInputStillIn(window); }});
    accessibility.setTakesWholeTexts([this] { return !isOn(leavesWholeTextsDefault, false); });
    accessibility.setWholeTextHandler([this](const std::string& text) {
      notice.tellQuietly(reasonText(QString::fromStdString(text)).toStdString());
    });
  }

  std::map<std::string, Availability> states() const {
    auto result = services();
    result.emplace("StatusBar", statusBar.availability());
    if (const Availability outcome = latestOutcome(); !outcome.isAvailable)
      result.emplace("LatestCommand", outcome);
    return result;
  }

  // Those that answer without asking another process.
  std::map<std::string, Availability> services() const {
    return {
        {"Accessibility", accessibility.availability()},
        {"AppleEvents", appleEvents.availability()},
        {"DistributedNotifications", distributedNotificationCenter.availability()},
        {"HotKeys", hotKeys.availability()},
        {"Installation", installation()},
        {"KeyboardLayout", keyboardLayout.availability()},
        {"Pasteboard", pasteboards.generalPasteboard().availability()},
        {"Workspace", workspace.availability()},
    };
  }

  Availability installation() const {
    const auto resources = XdgBundle::resourcesFolder();
    std::error_code unknown;
    if (!std::filesystem::is_directory(resources, unknown)) {
      return Availability::unavailable("files of Quenfold are missing in " + resources.string() +
                                       "; install Quenfold again");
    }
    if (!workspace.URLForApplicationWithBundleIdentifier(program.engineIdentifier)) {
      return Availability::unavailable(
          "the engine of Quenfold is not installed; install Quenfold again");
    }
    return Availability::available();
  }

  bool isOn(std::string_view userDefault, bool otherwise) {
    const auto value = userDefaults.standardUserDefaults().objectForKey(userDefault);
    return value ? value->integerValue() != 0 : otherwise;
  }

  Availability latestOutcome() const {
    return engineOutcome.isAvailable ? roadOutcome : engineOutcome;
  }

  // A failure stands where a person looks for it until the same has gone well again.
  void note(const Availability& outcome, Availability& latest) {
    if (outcome.isAvailable && latest.isAvailable) return;
    latest = outcome;
    showFaults();
    if (!outcome.isAvailable) notice.tell(text(outcome));
  }

  // What does not work, where a person looks for it: over the icon and in its menu.
  void showFaults() {
    QStringList faults;
    for (const auto& [name, state] : services()) {
      if (!state.isAvailable) faults << namedFault(name, state);
    }
    if (!latestOutcome().isAvailable) faults << toQString(text(latestOutcome()));
    statusBar.setNotice(faults.join('\n'));
    statusBar.setMenuNote(installationFault());
  }

  void tell(std::string_view service, const Availability& state) {
    notice.tell(namedFault(service, state).toStdString());
  }

  static QString namedFault(std::string_view service, const Availability& state) {
    return serviceName(toQString(service)) + ": " + toQString(text(state));
  }

  QString installationFault() const {
    QString fault = toQString(text(installation()));
    if (!fault.isEmpty()) fault.front() = fault.front().toUpper();
    return fault;
  }

  static std::string text(const Availability& state) {
    return reasonText(toQString(state.reason)).toStdString();
  }

  const Program program;
  LocalCrashReporter crashReporter;
  XdgBundle bundle;
  XdgFileManager fileManager;
  PropertyListUserDefaultsDomains userDefaults;
  DBusAppleEvents appleEvents;
  DBusDistributedNotificationCenter distributedNotificationCenter;
  LinuxWorkspace workspace;
  mutable XcbPasteboards pasteboards;
  X11Surroundings surroundings;
  CleanRequest request;
  AtspiAccessibility accessibility;
  QtMainQueue mainQueue;
  XcbHotKeys hotKeys;
  XkbKeyboardLayout keyboardLayout;
  DesktopHotKeys symbolicHotKeys;
  AddedModifiers addedModifiers;
  QtEventState eventState{addedModifiers};
  QtMenuPresenter menuPresenter;
  X11PanelSystem panelSystem;
  QtPaletteWindows paletteWindows;
  DBusServicesMenu servicesMenu;
  QtSound sound;
  DesktopTraySystem traySystem;
  QtStatusBar statusBar;
  ColorScheme colorScheme;
  UserNotice notice;
  StatusReport statusReport;
  Availability engineOutcome;  // of what the engine was asked last
  Availability roadOutcome;    // of the last text that was to be cleaned
  bool isLaunchFailureTold = false;
  Host host;
};

Availability LinuxHost::desktop() { return x11Display(); }

LinuxHost::LinuxHost(int& argc, char** argv, Program program)
    : _core(std::make_unique<Core>(argc, argv, program)) {}

LinuxHost::~LinuxHost() = default;

bool LinuxHost::registerOnlyInstance() {
  const auto error = _core->applications.registerInstance(BusApplications::Instances::one);
  if (!error) return true;
  log(error->localizedDescription);
  if (!_core->applications.availability().isAvailable) return true;
  _core->applications.reopenRunningInstance();
  return false;
}

BusApplications& LinuxHost::applications() { return _core->applications; }

Host& LinuxHost::services() {
  if (!_backends) _backends = std::make_unique<Backends>(*_core);
  return _backends->host;
}

}  // namespace qf
