// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "host/AppleEvents.h"
#include "host/Availability.h"

namespace qf {

/// Modifier keys of a hot key, as bits of the hot-key service's own layout.
namespace hotKeyModifier {
inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;
}  // namespace hotKeyModifier

/// Identifies a registration to its owner.
struct HotKeyID {
  FourCharCode signature = 0;
  std::uint32_t id = 0;
  bool operator==(const HotKeyID&) const = default;
};

/// The event that a handler receives.
struct HotKeyEvent {
  static constexpr FourCharCode keyboardClass = fourCharCode("keyb");
  static constexpr std::uint32_t pressed = 5;

  FourCharCode eventClass = keyboardClass;
  std::uint32_t kind = pressed;
  std::optional<HotKeyID> directObject;
};

enum class HotKeyStatus : std::int32_t {
  noError = 0,
  eventHotKeyExists = -9878,  ///< another program holds the combination
  eventHotKeyInvalid =
      -9879,  ///< no key of this keyboard, or there is no keyboard to register with
};

/// Key combinations that reach this process whichever application is active. Main thread; no call
/// blocks longer than 1 s.
class HotKeys {
 public:
  /// Identifies a registration; 0 for none.
  using Ref = std::uint64_t;
  using Handler = std::function<void(const HotKeyEvent& event)>;

  virtual ~HotKeys() = default;
  /// Unavailable when combinations were refused since `forgetRefusals`; names each and the reason.
  virtual Availability availability() const = 0;
  /// Of one combination: unavailable, with the reason, where it was refused.
  virtual Availability availability(std::uint32_t keyCode, std::uint32_t modifiers) const = 0;

  /// Key code as in the menu settings (a place on the keyboard), modifiers as above. The
  /// combination works with any lock keys on, once per press however long it is held; the active
  /// application keeps the input. Of equal combinations of this process the last registered is
  /// delivered. Dropping a registration and making an equal one in the same turn of the run loop
  /// loses no press. Registrations end with the process.
  virtual HotKeyStatus registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                           HotKeyID id, Ref& ref) = 0;
  virtual void unregisterEventHotKey(Ref ref) = 0;
  /// Clears the recorded refusals.
  virtual void forgetRefusals() = 0;

  /// Every handler runs, from the run loop, for each press of any of this process's combinations.
  /// Nothing where hot keys cannot be delivered at all.
  virtual std::optional<std::uint64_t> installEventHandler(Handler handler) = 0;
  virtual void removeEventHandler(std::uint64_t handler) = 0;
};

}  // namespace qf
