// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "host/ShortcutReport.h"

namespace qf {

class HotKeys;
class MASShortcutValidator;
class QFKMenuSettingsManager;

/// The state of each shortcut of the settings after `AppDelegate` has registered them.
std::map<std::string, ShortcutStatus> shortcutStates(const QFKMenuSettingsManager& settings,
                                                     const MASShortcutValidator& validator,
                                                     const HotKeys& hotKeys);

}  // namespace qf
