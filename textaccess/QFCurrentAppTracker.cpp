// SPDX-License-Identifier: Apache-2.0
#include "textaccess/QFCurrentAppTracker.h"

#include "foundation/Log.h"
#include "foundation/SharedInstance.h"
#include "host/Workspace.h"

namespace qf {

QFCurrentAppTracker& QFCurrentAppTracker::shared() {
  return SharedInstance<QFCurrentAppTracker>::get();
}

QFCurrentAppTracker::QFCurrentAppTracker(Workspace& workspace) : _workspace(workspace) {
  _workspace.observeActivation([this] { newAppActivated(); });
  newAppActivated();
}

void QFCurrentAppTracker::newAppActivated() {
  const auto frontmost = _workspace.frontmostApplication();
  if (!frontmost) {
    log("Warning: Could not accurately determine frontmost application!");
    return;
  }
  if (frontmost->processIdentifier == _workspace.currentProcessIdentifier()) return;

  _frontBundleIdentifier = frontmost->bundleIdentifier;
  _frontProcessIdentifier = frontmost->processIdentifier;
  _frontAppName = frontmost->localizedName;
}

void QFCurrentAppTracker::logCurrentStatus() const {
  log("BundleID: " + _frontBundleIdentifier.value_or("(null)"));
  log("Name: " + _frontAppName);
  log("PID: " + std::to_string(_frontProcessIdentifier));
}

}  // namespace qf
