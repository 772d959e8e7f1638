// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Bell.h"

#include <poll.h>
#include <xcb/xcb.h>

// The header names a field with a keyword of C++.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <cstdlib>

namespace qf::desktop {

Bell::Bell() : _connection(xcb_connect(nullptr, nullptr)) {
  const auto cookie = xcb_xkb_use_extension(_connection, 1, 0);
  std::free(xcb_xkb_use_extension_reply(_connection, cookie, nullptr));
  constexpr auto bell = XCB_XKB_EVENT_TYPE_BELL_NOTIFY;
  xcb_xkb_select_events(_connection, XCB_XKB_ID_USE_CORE_KBD, bell, 0, bell, 0, 0, nullptr);
  xcb_flush(_connection);
}

Bell::~Bell() { xcb_disconnect(_connection); }

bool Bell::rings(std::chrono::milliseconds limit) {
  const auto first = xcb_get_extension_data(_connection, &xcb_xkb_id)->first_event;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < deadline) {
    while (xcb_generic_event_t* event = xcb_poll_for_event(_connection)) {
      const bool isBell =
          (event->response_type & 0x7f) == first && event->pad0 == XCB_XKB_BELL_NOTIFY;
      std::free(event);
      if (isBell) return true;
    }
    pollfd descriptor{xcb_get_file_descriptor(_connection), POLLIN, 0};
    poll(&descriptor, 1, 20);
  }
  return false;
}

}  // namespace qf::desktop
