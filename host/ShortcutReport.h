// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace qf {

/// The state of a shortcut of the settings.
struct ShortcutStatus {
  enum class State : std::uint8_t {
    active,
    unset,      ///< it has no keys
    invalid,    ///< its keys are needed for typing
    duplicate,  ///< a later shortcut has the same keys and takes precedence
    refused,    ///< its keys do nothing, for the reason given
  };
  State state = State::active;
  std::string reason;  ///< in words a person can act on; empty but for `refused`
  bool operator==(const ShortcutStatus&) const = default;
};

/// Lets other programs ask which shortcuts work. Main thread.
class ShortcutReport {
 public:
  /// By the shortcuts' keys in the settings.
  using Source = std::function<std::map<std::string, ShortcutStatus>()>;

  virtual ~ShortcutReport() = default;
  /// Asked anew each time, from the run loop.
  virtual void setShortcutSource(Source source) = 0;
};

}  // namespace qf
