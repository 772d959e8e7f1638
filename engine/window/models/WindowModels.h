// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/window/WindowHost.h"
#include "engine/window/models/MenuSettings.h"
#include "engine/window/models/PersonalLists.h"

namespace qf {

/// What the pages show and change. Lives as long as the window.
struct WindowModels {
  explicit WindowModels(const WindowHost& windowHost)
      : host(windowHost), menuSettings(host), lists(host) {}

  WindowHost host;
  MenuSettings menuSettings;
  PersonalLists lists;
};

}  // namespace qf
