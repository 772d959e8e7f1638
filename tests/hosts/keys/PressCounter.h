// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "hosts/linux/keys/XcbHotKeys.h"
#include "hosts/qt/QtMainQueue.h"
#include "tests/desktop/Desktop.h"

namespace qf {

/// Real hot keys, and how often each was pressed by its number.
struct PressCounter {
  explicit PressCounter(const std::string& displayName = {}) : hotKeys(queue, displayName) {
    hotKeys.installEventHandler(
        [this](const HotKeyEvent& event) { ++presses[event.directObject->id]; });
  }

  HotKeyStatus add(std::uint32_t keyCode, std::uint32_t modifiers, std::uint32_t id) {
    return hotKeys.registerEventHotKey(keyCode, modifiers, {1, id}, refs[id]);
  }
  void drop(std::uint32_t id) { hotKeys.unregisterEventHotKey(refs[id]); }
  /// Waits for a press; false when there is none for a good while.
  bool heard(std::uint32_t id, int count = 1) {
    return desktop::until([&] { return presses[id] >= count; }, std::chrono::seconds(3));
  }

  QtMainQueue queue;
  XcbHotKeys hotKeys;
  std::map<std::uint32_t, HotKeys::Ref> refs;
  std::map<std::uint32_t, int> presses;
};

/// Lets everything happen that is about to.
inline void settle(std::chrono::milliseconds time = std::chrono::milliseconds(150)) {
  desktop::until([] { return false; }, time);
}

}  // namespace qf
