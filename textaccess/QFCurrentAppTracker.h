// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qf {

class Workspace;

/// Remembers which application other than this one was last frontmost, so that the menu and the
/// palette know whose text the user means. Main thread.
class QFCurrentAppTracker {
 public:
  static QFCurrentAppTracker& shared();

  /// Observes the workspace from now on, for as long as the workspace lives: make no more than one
  /// a workspace, and keep it. Knows the frontmost application on return, if there is one.
  explicit QFCurrentAppTracker(Workspace& workspace);
  QFCurrentAppTracker(const QFCurrentAppTracker&) = delete;
  QFCurrentAppTracker& operator=(const QFCurrentAppTracker&) = delete;

  /// Asks the workspace for the frontmost application. Keeps the known one while that is this
  /// process or unknown.
  void newAppActivated();
  void refresh() { newAppActivated(); }

  void logCurrentStatus() const;

  /// Nothing for an application without one.
  const std::optional<std::string>& frontBundleIdentifier() const { return _frontBundleIdentifier; }
  const std::string& frontAppName() const { return _frontAppName; }
  /// 0 before any other application was seen.
  std::int32_t frontProcessIdentifier() const { return _frontProcessIdentifier; }

 private:
  Workspace& _workspace;
  std::optional<std::string> _frontBundleIdentifier = "org.quenfold.undefined";
  std::string _frontAppName = "Undefined";
  std::int32_t _frontProcessIdentifier = 0;
};

}  // namespace qf
