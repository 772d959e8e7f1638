// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <functional>

namespace qf {

/// What the palette asks of the program it belongs to.
struct PaletteQuestions {
  /// Whether it takes the keyboard; asked each time it appears.
  std::function<bool()> takesKeyboard;
  /// Why there are no cleaners at all and what helps; empty where nothing is wrong. Asked while the
  /// palette is drawn without a cleaner.
  std::function<QString()> fault;
};

}  // namespace qf
