// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QRect>
#include <functional>
#include <vector>

#include "host/Image.h"

namespace qf {

/// What decides the one colour of a template.
struct IconTint {
  enum class Panel { unknown, light, dark };
  enum class State { normal, highlighted, disabled };

  Panel panel = Panel::unknown;
  State state = State::normal;
};

/// What lies behind a tray icon, told from the screen's pixels at the icon's corners, which a
/// template leaves free; unknown where the desktop does not let us look or the place is empty.
IconTint::Panel panelAt(const QRect& geometry);

/// The ground that all of the panels there have, told from pixels spread over each; unknown where
/// they differ.
IconTint::Panel panelOf(const std::vector<QRect>& panels);

/// The image at whatever size and scale it is asked for. A template is dark on a light panel, light
/// on a dark one, and light with a dark rim where the panel is not known. `painted` runs after each
/// time the icon was drawn on a window; the icon's owner outlives it.
QIcon iconForImage(const Image& image, IconTint tint, std::function<void()> painted = {});

/// Takes up its place and shows nothing.
QIcon emptyIcon();

}  // namespace qf
