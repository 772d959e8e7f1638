// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <chrono>
#include <optional>
#include <vector>

#include "hosts/linux/keys/Accelerator.h"

namespace qf {

// The shortcuts of the desktops that publish them. Each answers nothing where its desktop does not
// run in this session. Main thread; those that ask over the bus wait until the deadline at most.

using DesktopShortcuts = std::optional<std::vector<Accelerator>>;
using DesktopDeadline = std::chrono::steady_clock::time_point;

/// GNOME's window manager, shell and settings daemon: GSettings.
DesktopShortcuts gnomeShortcuts();
/// KDE's: the components of the KGlobalAccel service.
DesktopShortcuts kdeShortcuts(const QDBusConnection& bus, DesktopDeadline deadline);
/// Xfce's: the channel "xfce4-keyboard-shortcuts" of its configuration service.
DesktopShortcuts xfceShortcuts(const QDBusConnection& bus, DesktopDeadline deadline);

}  // namespace qf
