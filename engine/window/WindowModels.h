// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/window/MenuSettings.h"
#include "engine/window/PersonalLists.h"
#include "engine/window/WindowServices.h"

namespace qf {

/// What the pages show and change. Lives as long as the window.
struct WindowModels {
  explicit WindowModels(const WindowServices& windowServices)
      : services(windowServices), menuSettings(services), lists(services) {}

  WindowServices services;
  MenuSettings menuSettings;
  PersonalLists lists;
};

}  // namespace qf
