// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qf {

/// A desktop's shortcut, by what is typed rather than by the place of the key.
struct Accelerator {
  std::uint32_t symbol = 0;     ///< a keysym; 0 for the key above Tab, whatever it types
  std::uint32_t modifiers = 0;  ///< as host/HotKeys.h lays them out
  bool operator==(const Accelerator&) const = default;
};

/// Of a text as gtk_accelerator_parse() reads it: "<Primary><Alt>t". Nothing for one that no hot
/// key of ours can equal.
std::optional<Accelerator> acceleratorFromGtkText(const std::string& text);

/// Of a Qt::Key with Qt::KeyboardModifiers, as KGlobalAccel publishes them.
std::optional<Accelerator> acceleratorFromQtKey(int combination);

}  // namespace qf
