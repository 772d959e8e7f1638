// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Error.h"
#include "host/Availability.h"

namespace qf {

enum class ActivationPolicy : std::int32_t { regular = 0, accessory = 1, prohibited = 2 };

/// A snapshot of one application that runs.
struct RunningApplication {
  std::optional<std::string> bundleIdentifier;
  std::string localizedName;
  std::int32_t processIdentifier = 0;
  ActivationPolicy activationPolicy = ActivationPolicy::regular;
};

struct LaunchOptions {
  static constexpr std::uint32_t withoutActivation = 0x200;
  static constexpr std::uint32_t asynchronous = 0x10000;
  static constexpr std::uint32_t newInstance = 0x80000;
  static constexpr std::uint32_t hidden = 0x100000;

  std::uint32_t flags = 0;
  std::vector<std::string> arguments;
};

/// The applications of this user's session. Main thread. No call blocks longer than 1 s, a
/// synchronous launch excepted.
class Workspace {
 public:
  virtual ~Workspace() = default;
  virtual Availability availability() const = 0;

  /// The application of the active window; nothing when it is unknown. Panels, desktop icons and
  /// windows of no application never count.
  virtual std::optional<RunningApplication> frontmostApplication() const = 0;
  virtual std::int32_t currentProcessIdentifier() const = 0;
  virtual std::optional<RunningApplication> runningApplication(
      std::int32_t processIdentifier) const = 0;
  /// In the order in which they started.
  virtual std::vector<RunningApplication> runningApplicationsWithBundleIdentifier(
      std::string_view bundleIdentifier) const = 0;

  /// Raises the window of that process that was active last and gives it the input; does nothing
  /// where it has it already. False when no such application runs.
  virtual bool activateApplication(std::int32_t processIdentifier) = 0;

  virtual std::optional<std::filesystem::path> URLForApplicationWithBundleIdentifier(
      std::string_view bundleIdentifier) const = 0;
  /// Unless asynchronous, returns once the application takes events: at most 10 s, then the launch
  /// has failed.
  virtual std::optional<Error> launchApplicationAtURL(const std::filesystem::path& url,
                                                      const LaunchOptions& options) = 0;

  /// The handler runs whenever another application may have become frontmost.
  virtual void observeActivation(std::function<void()> handler) = 0;
};

}  // namespace qf
