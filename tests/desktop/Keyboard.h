// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

struct xcb_connection_t;

namespace qf::desktop {

/// Keys pressed into the X server as a real keyboard's are, and grabs of keys as another program
/// makes them. A key is the number of the Linux input event that it sends
/// (linux/input-event-codes.h).
class Keyboard {
 public:
  /// An empty display name is the session's own.
  explicit Keyboard(const std::string& displayName = {});
  ~Keyboard();  ///< lets go of its grabs
  Keyboard(const Keyboard&) = delete;
  Keyboard& operator=(const Keyboard&) = delete;

  void down(std::uint16_t key);
  void up(std::uint16_t key);
  /// All down in that order, and up again.
  void press(std::initializer_list<std::uint16_t> keys);

  /// Whether the grab, with these modifiers of the X protocol, was granted.
  bool grab(std::uint16_t key, std::uint16_t modifiers);
  void ungrab(std::uint16_t key, std::uint16_t modifiers);
  /// Takes the whole keyboard; false where another program holds it.
  bool takeAll();
  void letGoOfAll();
  bool canTakeAll();
  /// Locks one of the layouts that were set, the first being 0.
  void lockLayout(std::uint8_t layout);

 private:
  void inject(std::uint8_t type, std::uint16_t key);

  xcb_connection_t* _connection;
  std::uint32_t _root = 0;
};

}  // namespace qf::desktop
