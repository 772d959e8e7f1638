// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeWorkspace.h"

namespace qf {

std::optional<RunningApplication> FakeWorkspace::frontmostApplication() const {
  return runningApplication(frontmost);
}

std::optional<RunningApplication> FakeWorkspace::runningApplication(
    std::int32_t processIdentifier) const {
  for (const RunningApplication& application : applications) {
    if (application.processIdentifier == processIdentifier) return application;
  }
  return std::nullopt;
}

std::vector<RunningApplication> FakeWorkspace::runningApplicationsWithBundleIdentifier(
    std::string_view bundleIdentifier) const {
  std::vector<RunningApplication> found;
  for (const RunningApplication& application : applications) {
    if (application.bundleIdentifier == bundleIdentifier) found.push_back(application);
  }
  return found;
}

bool FakeWorkspace::activateApplication(std::int32_t processIdentifier) {
  activated.push_back(processIdentifier);
  if (!runningApplication(processIdentifier)) return false;
  if (frontmost != processIdentifier) bringToFront(processIdentifier);
  return true;
}

std::optional<std::filesystem::path> FakeWorkspace::URLForApplicationWithBundleIdentifier(
    std::string_view bundleIdentifier) const {
  const auto found = locations.find(bundleIdentifier);
  if (found == locations.end()) return std::nullopt;
  return found->second;
}

std::optional<Error> FakeWorkspace::launchApplicationAtURL(const std::filesystem::path& url,
                                                           const LaunchOptions& options) {
  launches.emplace_back(url, options);
  if (url.empty()) return Error{"there is no such application"};
  if (launchError) return launchError;
  if (onLaunch) onLaunch();
  return std::nullopt;
}

void FakeWorkspace::observeActivation(std::function<void()> handler) {
  _observers.push_back(std::move(handler));
}

void FakeWorkspace::bringToFront(std::int32_t processIdentifier) {
  frontmost = processIdentifier;
  for (const auto& observer : _observers) observer();
}

}  // namespace qf
