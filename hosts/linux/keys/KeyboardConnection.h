// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "hosts/linux/keys/KeyboardMap.h"

struct xkb_context;

namespace qf {

/// A connection to the X server that knows its keyboard, can grab keys, and tells a press from the
/// repeats of a key that is held. Used by one thread at a time.
class KeyboardConnection {
 public:
  struct Free {
    void operator()(void* memory) const { std::free(memory); }
  };
  template <class T>
  using Owned = std::unique_ptr<T, Free>;

  /// What an event turned out to be.
  enum class News { nothing, press, keyboardChanged, layoutChanged };

  /// An empty display name is the session's own (DISPLAY).
  explicit KeyboardConnection(const std::string& displayName);
  ~KeyboardConnection();
  KeyboardConnection(const KeyboardConnection&) = delete;
  KeyboardConnection& operator=(const KeyboardConnection&) = delete;

  /// Why there is no usable keyboard; empty where there is one.
  const std::string& fault() const { return _fault; }
  bool isAlive() const { return _fault.empty() && !xcb_connection_has_error(_connection); }
  int fileDescriptor() const { return xcb_get_file_descriptor(_connection); }
  void flush() { xcb_flush(_connection); }

  /// Null when none waits.
  Owned<xcb_generic_event_t> nextEvent() {
    return Owned<xcb_generic_event_t>(xcb_poll_for_event(_connection));
  }
  News classify(const xcb_generic_event_t& event);

  /// The keyboard of this moment; `previous` tells which Latin layout was active last.
  std::shared_ptr<const KeyboardMap> readKeyboard(const KeyboardMap* previous);

  /// False, and nothing grabbed, where another client holds any of it.
  bool grab(std::uint8_t key, std::uint16_t modifiers, const KeyboardMap& map);
  void ungrab(std::uint8_t key, std::uint16_t modifiers, const KeyboardMap& map);

  /// Gives the keyboard back to the window that had it, and answers whether this is a press of its
  /// own and no repeat.
  bool begins(const xcb_key_press_event_t& press);

  /// By the window manager's word; XCB_WINDOW_NONE where there is none.
  xcb_window_t activeWindow();

 private:
  void internAtoms();
  bool startXkb();
  bool startXInput();
  void released(std::uint32_t key);
  void listenToReleases(bool listens);
  bool isDown(std::uint8_t key);

  xcb_connection_t* _connection;
  std::string _fault;
  xcb_window_t _root = XCB_WINDOW_NONE;
  xcb_atom_t _netActiveWindow = XCB_ATOM_NONE;
  xkb_context* _context = nullptr;
  std::uint8_t _firstXkbEvent = 0;
  std::uint8_t _xInputOpcode = 0;
  std::int32_t _keyboard = -1;
  std::map<std::uint8_t, xcb_timestamp_t> _heldKeys;  // with the time of the latest repeat
};

}  // namespace qf
