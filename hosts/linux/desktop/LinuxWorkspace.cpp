// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/LinuxWorkspace.h"

#include <unistd.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/desktop/ProcessTable.h"

namespace qf {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t mostRemembered = 64;
constexpr std::chrono::milliseconds activationLimit{250};
constexpr std::chrono::milliseconds lookInterval{4};

bool isOfApplication(const X11Window& window) {
  return window.processIdentifier > 0 && !window.isPartOfDesktop;
}

}  // namespace

LinuxWorkspace::LinuxWorkspace(BusApplications& applications, Options options)
    : _applications(applications),
      _options(std::move(options)),
      _windows([this] { activeWindowChanged(); }),
      _entries(DesktopEntries::standardFolders(_options.programFolder)),
      _launcher(_options.programFolder) {
  if (const xcb_window_t active = _windows.activeWindow()) remember(_windows.describe(active));
}

Availability LinuxWorkspace::availability() const { return _windows.availability(); }

std::int32_t LinuxWorkspace::currentProcessIdentifier() const { return getpid(); }

std::optional<RunningApplication> LinuxWorkspace::frontmostApplication() const {
  const xcb_window_t active = _windows.activeWindow();
  if (active == XCB_WINDOW_NONE) return std::nullopt;
  const X11Window window = _windows.describe(active);
  if (isOfApplication(window)) {
    remember(window);
    return describe(window);
  }
  if (!window.isPartOfDesktop) return std::nullopt;
  for (const X11Window& previous : windowsByActivity())
    if (std::find(_lastActive.begin(), _lastActive.end(), previous.window) != _lastActive.end())
      return describe(previous);
  return std::nullopt;
}

std::optional<RunningApplication> LinuxWorkspace::runningApplication(
    std::int32_t processIdentifier) const {
  if (!processExists(processIdentifier)) return std::nullopt;
  for (const X11Window& window : windowsByActivity())
    if (window.processIdentifier == processIdentifier) return describe(window);
  return describeWithoutWindow(processIdentifier);
}

std::vector<RunningApplication> LinuxWorkspace::runningApplicationsWithBundleIdentifier(
    std::string_view bundleIdentifier) const {
  return _applications.running(bundleIdentifier);
}

bool LinuxWorkspace::activateApplication(std::int32_t processIdentifier) {
  const auto isActive = [this, processIdentifier] {
    const xcb_window_t active = _windows.activeWindow();
    return active && _windows.describe(active).processIdentifier == processIdentifier;
  };
  if (processIdentifier <= 0) return false;
  if (isActive()) return true;
  if (_activationVeto && _activationVeto()) return false;

  const std::vector<X11Window> windows = windowsByActivity();
  const auto target = std::find_if(windows.begin(), windows.end(), [&](const X11Window& window) {
    return window.processIdentifier == processIdentifier;
  });
  if (target == windows.end()) return false;
  _windows.requestActivation(target->window);
  const Clock::time_point deadline = Clock::now() + activationLimit;
  while (!isActive() && Clock::now() < deadline) std::this_thread::sleep_for(lookInterval);
  return true;
}

xcb_window_t LinuxWorkspace::inputWindow() const {
  const xcb_window_t active = _windows.activeWindow();
  if (active == XCB_WINDOW_NONE) return XCB_WINDOW_NONE;
  const X11Window window = _windows.describe(active);
  const bool isOthers = isOfApplication(window) && window.processIdentifier != getpid();
  return isOthers ? active : xcb_window_t{XCB_WINDOW_NONE};
}

bool LinuxWorkspace::isInputStillIn(xcb_window_t window) const {
  const xcb_window_t active = inputWindow();
  return active == window || active == XCB_WINDOW_NONE;
}

std::int32_t LinuxWorkspace::processOfWindow(xcb_window_t window) const {
  return window == XCB_WINDOW_NONE ? 0 : _windows.describe(window).processIdentifier;
}

std::optional<std::filesystem::path> LinuxWorkspace::URLForApplicationWithBundleIdentifier(
    std::string_view bundleIdentifier) const {
  return _entries.pathForIdentifier(bundleIdentifier);
}

std::optional<Error> LinuxWorkspace::launchApplicationAtURL(const std::filesystem::path& url,
                                                            const LaunchOptions& options) {
  auto error = launch(url, options);
  if (error && _launchFailureHandler) _launchFailureHandler(error->localizedDescription);
  return error;
}

std::optional<Error> LinuxWorkspace::launch(const std::filesystem::path& url,
                                            const LaunchOptions& options) {
  const std::optional<DesktopEntry> entry = DesktopEntry::read(url);
  if (!entry)
    return Error{url.empty() ? "the application is not installed"
                             : url.string() + " is not the desktop entry of an application"};
  if (options.flags & LaunchOptions::asynchronous)
    return _launcher.launch(*entry, options.arguments, nullptr, _options.launchLimit);

  if (const Availability bus = _applications.availability(); !bus.isAvailable)
    return Error{entry->name + " cannot be started: " + bus.reason};
  const QStringList before = _applications.owners(entry->identifier);
  const auto hasAppeared = [&] {
    const QStringList now = _applications.owners(entry->identifier);
    return std::any_of(now.begin(), now.end(),
                       [&](const QString& owner) { return !before.contains(owner); });
  };
  return _launcher.launch(*entry, options.arguments, hasAppeared, _options.launchLimit);
}

void LinuxWorkspace::observeActivation(std::function<void()> handler) {
  _handlers.push_back(std::move(handler));
}

void LinuxWorkspace::activeWindowChanged() {
  const xcb_window_t active = _windows.activeWindow();
  if (active == XCB_WINDOW_NONE) return;  // between two windows, or nobody's turn
  remember(_windows.describe(active));
  for (std::size_t i = 0; i < _handlers.size(); ++i) {
    const std::function<void()> handler = _handlers[i];  // handlers may be added meanwhile
    handler();
  }
}

void LinuxWorkspace::remember(const X11Window& window) const {
  if (!isOfApplication(window)) return;
  std::erase(_lastActive, window.window);
  _lastActive.insert(_lastActive.begin(), window.window);
  if (_lastActive.size() > mostRemembered) _lastActive.pop_back();
}

/// The windows of applications: those that were active, the latest first, then the others from the
/// top.
std::vector<X11Window> LinuxWorkspace::windowsByActivity() const {
  std::vector<xcb_window_t> managed = _windows.managedWindows();
  std::erase_if(_lastActive, [&](xcb_window_t window) {
    return std::find(managed.begin(), managed.end(), window) == managed.end();
  });
  std::vector<xcb_window_t> ordered = _lastActive;
  std::reverse(managed.begin(), managed.end());
  std::copy_if(managed.begin(), managed.end(), std::back_inserter(ordered), [&](auto window) {
    return std::find(_lastActive.begin(), _lastActive.end(), window) == _lastActive.end();
  });
  std::vector<X11Window> windows = _windows.describe(ordered);
  std::erase_if(windows, [](const X11Window& window) { return !isOfApplication(window); });
  return windows;
}

RunningApplication LinuxWorkspace::describe(const X11Window& window) const {
  RunningApplication application = describeWithoutWindow(window.processIdentifier);
  application.activationPolicy = ActivationPolicy::regular;
  const DesktopEntry* entry =
      _entries.matching(window.className, window.instanceName, application.localizedName);
  if (!entry) return application;
  if (!application.bundleIdentifier) application.bundleIdentifier = entry->identifier;
  application.localizedName = entry->name;
  return application;
}

RunningApplication LinuxWorkspace::describeWithoutWindow(std::int32_t processIdentifier) const {
  RunningApplication application;
  application.bundleIdentifier = _applications.bundleIdentifier(processIdentifier);
  application.localizedName = processName(processIdentifier);
  application.processIdentifier = processIdentifier;
  application.activationPolicy = ActivationPolicy::accessory;
  return application;
}

}  // namespace qf
