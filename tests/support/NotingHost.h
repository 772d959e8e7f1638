// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "foundation/Log.h"
#include "host/AccessibilityElement.h"
#include "host/CrashReporter.h"
#include "host/DistributedNotificationCenter.h"
#include "host/FileManager.h"
#include "host/Host.h"
#include "host/HotKeys.h"
#include "host/Services.h"
#include "host/StatusBar.h"
#include "host/Workspace.h"

namespace qf {

/// Stands in front of a host, in memory or real, and notes in what order the agent's start uses it.
/// Takes the log too.
class NotingHost {
 public:
  using Journal = std::vector<std::string>;

  explicit NotingHost(Host& behind)
      : _behind(behind),
        host{
            .accessibility = _accessibility,
            .appleEvents = behind.appleEvents,
            .application = behind.application,
            .bundle = behind.bundle,
            .crashReporter = _crashReporter,
            .distributedNotificationCenter = _notifications,
            .eventState = behind.eventState,
            .fileManager = _files,
            .hotKeys = _hotKeys,
            .keyboardLayout = behind.keyboardLayout,
            .mainQueue = behind.mainQueue,
            .menuPresenter = behind.menuPresenter,
            .paletteWindows = behind.paletteWindows,
            .pasteboards = behind.pasteboards,
            .services = _services,
            .shortcutReport = behind.shortcutReport,
            .sound = behind.sound,
            .statusBar = _statusBar,
            .symbolicHotKeys = behind.symbolicHotKeys,
            .userDefaults = behind.userDefaults,
            .workspace = _workspace,
        } {
    setLogSink([this](std::string_view line) { journal.push_back("log " + std::string(line)); });
  }
  ~NotingHost() { setLogSink({}); }
  NotingHost(const NotingHost&) = delete;
  NotingHost& operator=(const NotingHost&) = delete;

 private:
  struct NotingAccessibility : Accessibility {
    explicit NotingAccessibility(NotingHost& owner) : notes(owner) {}
    Availability availability() const override {
      return notes._behind.accessibility.availability();
    }
    AccessibilityElementRef systemWideElement() override {
      return notes._behind.accessibility.systemWideElement();
    }
    AccessibilityElementRef applicationElement(std::int32_t process) override {
      return notes._behind.accessibility.applicationElement(process);
    }
    bool isProcessTrusted(bool prompt) override {
      notes.journal.push_back(prompt ? "trusted? with a prompt" : "trusted?");
      return notes._behind.accessibility.isProcessTrusted(prompt);
    }
    NotingHost& notes;
  };

  struct NotingCrashReporter : CrashReporter {
    explicit NotingCrashReporter(NotingHost& owner) : notes(owner) {}
    void start() override {
      notes.journal.emplace_back("crash reporter");
      notes._behind.crashReporter.start();
    }
    NotingHost& notes;
  };

  struct NotingNotificationCenter : DistributedNotificationCenter {
    explicit NotingNotificationCenter(NotingHost& owner) : notes(owner) {}
    Availability availability() const override { return behind().availability(); }
    ObserverID addObserver(std::string name, Handler handler) override {
      notes.journal.push_back("observe " + name);
      return behind().addObserver(std::move(name), std::move(handler));
    }
    void removeObserver(ObserverID observer) override { behind().removeObserver(observer); }
    void post(std::string_view name) override { behind().post(name); }
    DistributedNotificationCenter& behind() const {
      return notes._behind.distributedNotificationCenter;
    }
    NotingHost& notes;
  };

  struct NotingFileManager : FileManager {
    explicit NotingFileManager(NotingHost& owner) : notes(owner) {}
    std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
        std::string_view identifier) const override {
      return behind().containerURLForSecurityApplicationGroupIdentifier(identifier);
    }
    std::optional<Error> createDirectory(const std::filesystem::path& path) override {
      return behind().createDirectory(path);
    }
    std::optional<Data> contents(const std::filesystem::path& path) const override {
      notes.journal.push_back("read " + path.filename().string());
      return behind().contents(path);
    }
    std::optional<Error> write(const std::filesystem::path& path,
                               std::span<const std::uint8_t> data) override {
      notes.journal.push_back("write " + path.filename().string());
      return behind().write(path, data);
    }
    FileManager& behind() const { return notes._behind.fileManager; }
    NotingHost& notes;
  };

  struct NotingHotKeys : HotKeys {
    explicit NotingHotKeys(NotingHost& owner) : notes(owner) {}
    Availability availability() const override { return behind().availability(); }
    Availability availability(std::uint32_t keyCode, std::uint32_t modifiers) const override {
      return behind().availability(keyCode, modifiers);
    }
    HotKeyStatus registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id,
                                     Ref& ref) override {
      notes.journal.push_back("hot key " + std::to_string(keyCode));
      return behind().registerEventHotKey(keyCode, modifiers, id, ref);
    }
    void unregisterEventHotKey(Ref ref) override { behind().unregisterEventHotKey(ref); }
    void forgetRefusals() override { behind().forgetRefusals(); }
    std::optional<std::uint64_t> installEventHandler(Handler handler) override {
      return behind().installEventHandler(std::move(handler));
    }
    void removeEventHandler(std::uint64_t handler) override {
      behind().removeEventHandler(handler);
    }
    HotKeys& behind() const { return notes._behind.hotKeys; }
    NotingHost& notes;
  };

  struct NotingServices : Services {
    explicit NotingServices(NotingHost& owner) : notes(owner) {}
    void setServicesProvider(ServicesProvider* provider) override {
      notes.journal.emplace_back(provider ? "services provider" : "no services provider");
      notes._behind.services.setServicesProvider(provider);
    }
    NotingHost& notes;
  };

  struct NotingStatusBar : StatusBar {
    struct Item : StatusItem, StatusItemButton {
      Item(NotingHost& owner, std::unique_ptr<StatusItem> real)
          : notes(owner), behind(std::move(real)) {}
      StatusItemButton& button() override { return *this; }
      void setMenu(Menu* menu) override {
        notes.journal.emplace_back("status item's menu");
        behind->setMenu(menu);
      }
      // One name for two things; at the start only the button gets an image.
      void setImage(std::optional<Image> image) override {
        notes.journal.push_back("image " + (image ? image->name : "none") +
                                (image && image->isTemplate ? ", a template" : ""));
        behind->button().setImage(std::move(image));
      }
      void setHighlighted(bool highlighted) override {
        notes.journal.emplace_back(highlighted ? "highlighted" : "not highlighted");
        behind->button().setHighlighted(highlighted);
      }
      void setEnabled(bool enabled) override {
        notes.journal.emplace_back(enabled ? "enabled" : "disabled");
        behind->button().setEnabled(enabled);
      }
      NotingHost& notes;
      std::unique_ptr<StatusItem> behind;
    };

    explicit NotingStatusBar(NotingHost& owner) : notes(owner) {}
    Availability availability() const override { return notes._behind.statusBar.availability(); }
    std::unique_ptr<StatusItem> statusItemWithLength(double length) override {
      notes.journal.emplace_back(length == variableLength ? "status item" : "narrow status item");
      return std::make_unique<Item>(notes, notes._behind.statusBar.statusItemWithLength(length));
    }
    NotingHost& notes;
  };

  struct NotingWorkspace : Workspace {
    explicit NotingWorkspace(NotingHost& owner) : notes(owner) {}
    Availability availability() const override { return behind().availability(); }
    std::optional<RunningApplication> frontmostApplication() const override {
      notes.journal.emplace_back("frontmost?");
      return behind().frontmostApplication();
    }
    std::int32_t currentProcessIdentifier() const override {
      return behind().currentProcessIdentifier();
    }
    std::optional<RunningApplication> runningApplication(std::int32_t process) const override {
      return behind().runningApplication(process);
    }
    std::vector<RunningApplication> runningApplicationsWithBundleIdentifier(
        std::string_view identifier) const override {
      return behind().runningApplicationsWithBundleIdentifier(identifier);
    }
    bool activateApplication(std::int32_t process) override {
      return behind().activateApplication(process);
    }
    std::optional<std::filesystem::path> URLForApplicationWithBundleIdentifier(
        std::string_view identifier) const override {
      return behind().URLForApplicationWithBundleIdentifier(identifier);
    }
    std::optional<Error> launchApplicationAtURL(const std::filesystem::path& url,
                                                const LaunchOptions& options) override {
      return behind().launchApplicationAtURL(url, options);
    }
    void observeActivation(std::function<void()> handler) override {
      behind().observeActivation(std::move(handler));
    }
    Workspace& behind() const { return notes._behind.workspace; }
    NotingHost& notes;
  };

  Host& _behind;
  NotingAccessibility _accessibility{*this};
  NotingCrashReporter _crashReporter{*this};
  NotingNotificationCenter _notifications{*this};
  NotingFileManager _files{*this};
  NotingHotKeys _hotKeys{*this};
  NotingServices _services{*this};
  NotingStatusBar _statusBar{*this};
  NotingWorkspace _workspace{*this};

 public:
  Journal journal;
  Host host;
};

}  // namespace qf
