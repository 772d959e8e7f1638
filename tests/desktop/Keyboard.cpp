// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Keyboard.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

// The header has a field of that name.
#define explicit explicitFlag
#include <xcb/xkb.h>
#undef explicit

#include <cstdlib>
#include <vector>

namespace qf::desktop {
namespace {

constexpr int firstKeyCode = 8;  // of the X protocol

std::uint8_t keyCode(std::uint16_t key) { return static_cast<std::uint8_t>(key + firstKeyCode); }

}  // namespace

Keyboard::Keyboard(const std::string& displayName)
    : _connection(xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), nullptr)) {
  _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
  std::free(
      xcb_xkb_use_extension_reply(_connection, xcb_xkb_use_extension(_connection, 1, 0), nullptr));
}

Keyboard::~Keyboard() { xcb_disconnect(_connection); }

void Keyboard::inject(std::uint8_t type, std::uint16_t key) {
  const auto cookie = xcb_test_fake_input_checked(_connection, type, keyCode(key), XCB_CURRENT_TIME,
                                                  _root, 0, 0, 0);
  std::free(xcb_request_check(_connection, cookie));
}

void Keyboard::down(std::uint16_t key) { inject(XCB_KEY_PRESS, key); }
void Keyboard::up(std::uint16_t key) { inject(XCB_KEY_RELEASE, key); }

void Keyboard::press(std::initializer_list<std::uint16_t> keys) {
  for (const auto key : keys) down(key);
  const std::vector<std::uint16_t> all(keys);
  for (auto key = all.rbegin(); key != all.rend(); ++key) up(*key);
}

bool Keyboard::grab(std::uint16_t key, std::uint16_t modifiers) {
  const auto cookie = xcb_grab_key_checked(_connection, 0, _root, modifiers, keyCode(key),
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  xcb_generic_error_t* error = xcb_request_check(_connection, cookie);
  std::free(error);
  return error == nullptr;
}

void Keyboard::ungrab(std::uint16_t key, std::uint16_t modifiers) {
  std::free(xcb_request_check(_connection,
                              xcb_ungrab_key_checked(_connection, keyCode(key), _root, modifiers)));
}

bool Keyboard::takeAll() {
  const auto cookie = xcb_grab_keyboard(_connection, 0, _root, XCB_CURRENT_TIME,
                                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  xcb_grab_keyboard_reply_t* reply = xcb_grab_keyboard_reply(_connection, cookie, nullptr);
  const bool isTaken = reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS;
  std::free(reply);
  return isTaken;
}

void Keyboard::letGoOfAll() {
  xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
  xcb_flush(_connection);
}

bool Keyboard::canTakeAll() {
  const bool isTaken = takeAll();
  if (isTaken) letGoOfAll();
  return isTaken;
}

void Keyboard::lockLayout(std::uint8_t layout) {
  const auto cookie = xcb_xkb_latch_lock_state_checked(_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0,
                                                       1, layout, 0, 0, 0);
  std::free(xcb_request_check(_connection, cookie));
}

}  // namespace qf::desktop
