// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/Workspace.h"
#include "hosts/linux/desktop/ApplicationLauncher.h"
#include "hosts/linux/desktop/DesktopEntries.h"
#include "hosts/linux/x11/X11Windows.h"

namespace qf {

class BusApplications;

/// Applications as the windows of the X display, the desktop entries and the session bus tell of
/// them. An application's identifier is the name of its desktop entry.
class LinuxWorkspace : public Workspace {
 public:
  struct Options {
    std::filesystem::path programFolder;  ///< where this program lies
    std::chrono::milliseconds launchLimit{10'000};
  };

  /// `applications` must outlive this.
  LinuxWorkspace(BusApplications& applications, Options options);

  Availability availability() const override;
  /// While a panel or the desktop has the input, the application that had it last.
  std::optional<RunningApplication> frontmostApplication() const override;
  std::int32_t currentProcessIdentifier() const override;
  std::optional<RunningApplication> runningApplication(
      std::int32_t processIdentifier) const override;
  std::vector<RunningApplication> runningApplicationsWithBundleIdentifier(
      std::string_view bundleIdentifier) const override;
  /// Waits until the window manager has done it, at most 250 ms.
  bool activateApplication(std::int32_t processIdentifier) override;
  std::optional<std::filesystem::path> URLForApplicationWithBundleIdentifier(
      std::string_view bundleIdentifier) const override;
  /// Always starts the program, also where an instance runs: whether it stays a second one is the
  /// program's own decision.
  std::optional<Error> launchApplicationAtURL(const std::filesystem::path& url,
                                              const LaunchOptions& options) override;
  void observeActivation(std::function<void()> handler) override;

  /// The active window where it is another application's, else 0.
  xcb_window_t inputWindow() const;
  /// False once the input has gone from that window to another one of another application. A panel
  /// or a window of this process does not count.
  bool isInputStillIn(xcb_window_t window) const;
  /// 0 where it is not known.
  std::int32_t processOfWindow(xcb_window_t window) const;

  /// Asked before another window is activated: where it answers true, the input stays where it is.
  void setActivationVeto(std::function<bool()> veto) { _activationVeto = std::move(veto); }
  /// Called with the reason, in words for a person, each time an application could not be started.
  void setLaunchFailureHandler(std::function<void(const std::string& reason)> handler) {
    _launchFailureHandler = std::move(handler);
  }

 private:
  std::optional<Error> launch(const std::filesystem::path& url, const LaunchOptions& options);
  void activeWindowChanged();
  void remember(const X11Window& window) const;
  std::vector<X11Window> windowsByActivity() const;
  RunningApplication describe(const X11Window& window) const;
  RunningApplication describeWithoutWindow(std::int32_t processIdentifier) const;

  BusApplications& _applications;
  Options _options;
  X11Windows _windows;
  DesktopEntries _entries;
  ApplicationLauncher _launcher;
  std::vector<std::function<void()>> _handlers;
  std::function<bool()> _activationVeto;
  std::function<void(const std::string&)> _launchFailureHandler;
  mutable std::vector<xcb_window_t> _lastActive;  ///< windows of applications, the latest first
};

}  // namespace qf
