// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/KeyboardConnection.h"

#include <xcb/xinput.h>
#include <xkbcommon/xkbcommon-x11.h>

// The header has a field of that name.
#define explicit explicitFlag
#include <xcb/xkb.h>
#undef explicit

#include <string_view>
#include <vector>

#include "hosts/linux/keys/XkbPointers.h"

namespace qf {
namespace {

/// A release is missed where the server lets go of all keys itself, as on a change of the console.
/// A held key repeats sooner than this.
constexpr xcb_timestamp_t longestRepeatInMilliseconds = 3000;
constexpr std::uint8_t eventTypeMask = 0x7f;  // the rest says who sent it

}  // namespace

KeyboardConnection::KeyboardConnection(const std::string& displayName) {
  int screenNumber = 0;
  _connection = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &screenNumber);
  if (xcb_connection_has_error(_connection)) {
    _fault = "there is no X display; hot keys work in an X11 session only";
    return;
  }
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(_connection));
  for (; screenNumber > 0 && screens.rem > 1; --screenNumber) xcb_screen_next(&screens);
  _root = screens.data->root;
  internAtoms();
  _context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
  if (!_context || !startXkb()) {
    _fault = "the X server lacks the XKEYBOARD extension";
  } else if (!startXInput()) {
    _fault = "the X server lacks the XInputExtension 2.1";
  }
}

KeyboardConnection::~KeyboardConnection() {
  xkb_context_unref(_context);
  xcb_disconnect(_connection);
}

void KeyboardConnection::internAtoms() {
  constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
  const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      _connection, xcb_intern_atom(_connection, 0, name.size(), name.data()), nullptr));
  if (atom) _netActiveWindow = atom->atom;
}

xcb_window_t KeyboardConnection::activeWindow() {
  const Owned<xcb_get_property_reply_t> property(xcb_get_property_reply(
      _connection, xcb_get_property(_connection, 0, _root, _netActiveWindow, XCB_ATOM_WINDOW, 0, 1),
      nullptr));
  if (!property || xcb_get_property_value_length(property.get()) < int{sizeof(xcb_window_t)})
    return XCB_WINDOW_NONE;
  return *static_cast<const xcb_window_t*>(xcb_get_property_value(property.get()));
}

bool KeyboardConnection::startXkb() {
  if (!xkb_x11_setup_xkb_extension(
          _connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
          XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &_firstXkbEvent, nullptr)) {
    return false;
  }
  _keyboard = xkb_x11_get_core_keyboard_device_id(_connection);
  constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                   XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
  constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                     XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                     XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
  xcb_xkb_select_events_details_t details{};
  details.affectNewKeyboard = details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
  details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
  xcb_xkb_select_events_aux(_connection, XCB_XKB_ID_USE_CORE_KBD, events, 0, 0, mapParts, mapParts,
                            &details);
  // Without this a held key would send releases with its repeats.
  constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
  xcb_xkb_per_client_flags_unchecked(_connection, XCB_XKB_ID_USE_CORE_KBD, detectable, detectable,
                                     0, 0, 0);
  return _keyboard >= 0;
}

bool KeyboardConnection::startXInput() {
  const auto* extension = xcb_get_extension_data(_connection, &xcb_input_id);
  if (!extension || !extension->present) return false;
  _xInputOpcode = extension->major_opcode;
  const Owned<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
      _connection, xcb_input_xi_query_version(_connection, 2, 2), nullptr));
  return version && (version->major_version > 2 || version->minor_version >= 1);
}

KeyboardConnection::News KeyboardConnection::classify(const xcb_generic_event_t& event) {
  const std::uint8_t type = event.response_type & eventTypeMask;
  if (type == XCB_KEY_PRESS) return News::press;
  if (type == XCB_KEY_RELEASE) {  // it came before the keyboard was given back
    released(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
    return News::nothing;
  }
  if (type == XCB_GE_GENERIC) {
    const auto& input = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (input.extension != _xInputOpcode || input.event_type != XCB_INPUT_RAW_KEY_RELEASE) {
      return News::nothing;
    }
    released(reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event).detail);
    return News::nothing;
  }
  if (type != _firstXkbEvent) return News::nothing;
  const auto& xkbEvent = reinterpret_cast<const xcb_xkb_map_notify_event_t&>(event);
  return xkbEvent.xkbType == XCB_XKB_STATE_NOTIFY ? News::layoutChanged : News::keyboardChanged;
}

std::shared_ptr<const KeyboardMap> KeyboardConnection::readKeyboard(const KeyboardMap* previous) {
  const XkbKeymap keymap(xkb_x11_keymap_new_from_device(_context, _connection, _keyboard,
                                                        XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!keymap) return nullptr;
  const XkbState state(xkb_x11_state_new_from_device(keymap.get(), _connection, _keyboard));
  if (!state) return nullptr;
  KeyboardMap::Layouts layouts{xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE),
                               std::nullopt};
  if (previous) layouts.latin = previous->layouts().latin;
  return std::make_shared<const KeyboardMap>(_context, keymap.get(), layouts);
}

bool KeyboardConnection::grab(std::uint8_t key, std::uint16_t modifiers, const KeyboardMap& map) {
  std::vector<xcb_void_cookie_t> asked;
  for (const std::uint16_t locks : map.lockStates()) {
    asked.push_back(xcb_grab_key_checked(_connection, 0, _root, modifiers | locks, key,
                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  bool isGranted = true;
  for (const xcb_void_cookie_t cookie : asked) {
    const Owned<xcb_generic_error_t> error(xcb_request_check(_connection, cookie));
    if (error) isGranted = false;
  }
  if (!isGranted) ungrab(key, modifiers, map);
  return isGranted && isAlive();
}

void KeyboardConnection::ungrab(std::uint8_t key, std::uint16_t modifiers, const KeyboardMap& map) {
  for (const std::uint16_t locks : map.lockStates()) {
    xcb_ungrab_key(_connection, key, _root, modifiers | locks);
  }
}

bool KeyboardConnection::begins(const xcb_key_press_event_t& press) {
  const auto held = _heldKeys.find(press.detail);
  const bool isRepeat =
      held != _heldKeys.end() && press.time - held->second < longestRepeatInMilliseconds;
  // Only while a combination is held are releases listened to: nothing that is typed otherwise
  // reaches this process.
  if (_heldKeys.empty()) listenToReleases(true);
  // Kept until the key is let go, the grab would make the window that has the input look inactive.
  xcb_ungrab_keyboard(_connection, press.time);
  flush();
  if (isRepeat || isDown(press.detail)) {
    _heldKeys.insert_or_assign(press.detail, press.time);
  } else if (_heldKeys.empty()) {
    listenToReleases(false);
  }
  return !isRepeat;
}

void KeyboardConnection::released(std::uint32_t key) {
  const bool wasHeld = _heldKeys.erase(static_cast<std::uint8_t>(key)) > 0;
  if (wasHeld && _heldKeys.empty()) listenToReleases(false);
}

void KeyboardConnection::listenToReleases(bool listens) {
  const struct {
    xcb_input_event_mask_t head;
    std::uint32_t mask;
  } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
              listens ? std::uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE} : 0};
  xcb_input_xi_select_events(_connection, _root, 1, &selection.head);
}

bool KeyboardConnection::isDown(std::uint8_t key) {
  const Owned<xcb_query_keymap_reply_t> state(
      xcb_query_keymap_reply(_connection, xcb_query_keymap(_connection), nullptr));
  return state && (state->keys[key / 8] >> (key % 8) & 1) != 0;
}

}  // namespace qf
