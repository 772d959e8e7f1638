// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace qf {

/// What has become of a shortcut of the settings.
struct ShortcutStatus {
  enum class State : std::uint8_t {
    active,
    unset,      ///< it has no keys
    invalid,    ///< its keys are in the way of typing
    duplicate,  ///< a later shortcut has the same keys, which do what that one says
    refused,    ///< its keys do nothing, for the reason given
  };
  State state = State::active;
  std::string reason;  ///< in words a person can act on; empty but for `refused`
  bool operator==(const ShortcutStatus&) const = default;
};

/// Lets other programs ask which shortcuts work. Main thread.
class ShortcutReport {
 public:
  /// By the keys under which the settings hold the shortcuts.
  using Source = std::function<std::map<std::string, ShortcutStatus>()>;

  virtual ~ShortcutReport() = default;
  /// Asked anew each time, from the run loop.
  virtual void setShortcutSource(Source source) = 0;
};

}  // namespace qf
