// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/Workspace.h"

namespace qf {

/// A session with the applications that the test puts there.
class FakeWorkspace : public Workspace {
 public:
  Availability availability() const override { return Availability::available(); }
  std::optional<RunningApplication> frontmostApplication() const override;
  std::int32_t currentProcessIdentifier() const override { return currentProcess; }
  std::optional<RunningApplication> runningApplication(
      std::int32_t processIdentifier) const override;
  std::vector<RunningApplication> runningApplicationsWithBundleIdentifier(
      std::string_view bundleIdentifier) const override;
  bool activateApplication(std::int32_t processIdentifier) override;
  std::optional<std::filesystem::path> URLForApplicationWithBundleIdentifier(
      std::string_view bundleIdentifier) const override;
  std::optional<Error> launchApplicationAtURL(const std::filesystem::path& url,
                                              const LaunchOptions& options) override;
  void observeActivation(std::function<void()> handler) override;

  /// Another application becomes frontmost, and the observers hear of it.
  void bringToFront(std::int32_t processIdentifier);

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
