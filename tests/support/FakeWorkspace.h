// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/Workspace.h"
#include "tests/support/Journal.h"

namespace qf {

/// A session with the applications that the test puts there.
class FakeWorkspace : public Workspace {
 public:
  Availability availability() const override { return Availability::available(); }
  std::optional<RunningApplication> frontmostApplication() const override {
    journal.emplace_back("frontmost?");
    return runningApplication(frontmost);
  }
  std::int32_t currentProcessIdentifier() const override { return currentProcess; }
  std::optional<RunningApplication> runningApplication(
      std::int32_t processIdentifier) const override {
    for (const RunningApplication& application : applications) {
      if (application.processIdentifier == processIdentifier) return application;
    }
    return std::nullopt;
  }
  std::vector<RunningApplication> runningApplicationsWithBundleIdentifier(
      std::string_view bundleIdentifier) const override {
    std::vector<RunningApplication> found;
    for (const RunningApplication& application : applications) {
      if (application.bundleIdentifier == bundleIdentifier) found.push_back(application);
    }
    return found;
  }
  bool activateApplication(std::int32_t processIdentifier) override {
    activated.push_back(processIdentifier);
    if (!runningApplication(processIdentifier)) return false;
    if (frontmost != processIdentifier) bringToFront(processIdentifier);
    return true;
  }
  std::optional<std::filesystem::path> URLForApplicationWithBundleIdentifier(
      std::string_view bundleIdentifier) const override {
    const auto found = locations.find(bundleIdentifier);
    if (found == locations.end()) return std::nullopt;
    return found->second;
  }
  std::optional<Error> launchApplicationAtURL(const std::filesystem::path& url,
                                              const LaunchOptions& options) override {
    launches.emplace_back(url, options);
    if (url.empty()) return Error{"there is no such application"};
    if (launchError) return launchError;
    if (onLaunch) onLaunch();
    return std::nullopt;
  }
  void observeActivation(std::function<void()> handler) override {
    _observers.push_back(std::move(handler));
  }

  /// Another application becomes frontmost, and the observers hear of it.
  void bringToFront(std::int32_t processIdentifier) {
    frontmost = processIdentifier;
    for (const auto& observer : _observers) observer();
  }

  std::vector<RunningApplication> applications;  ///< in the order of their start
  std::int32_t frontmost = 0;                    ///< process; of none that runs: not known
  std::int32_t currentProcess = 1;
  std::vector<std::int32_t> activated;
  std::map<std::string, std::filesystem::path, std::less<>> locations;  ///< by bundle identifier
  std::vector<std::pair<std::filesystem::path, LaunchOptions>> launches;
  std::optional<Error> launchError;
  std::function<void()> onLaunch;  ///< of one that succeeds

 private:
  std::vector<std::function<void()>> _observers;
};

}  // namespace qf
