// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "tests/desktop/Desktop.h"

namespace qf {

/// A process that does nothing, in whose name windows are shown.
struct Process : desktop::Program {
  Process() : Program("sleep", {"1000"}) {}
  std::int32_t pid() const { return static_cast<std::int32_t>(processIdentifier()); }
};

/// The test's own connection, which plays the other applications.
class Display {
 public:
  ~Display() { xcb_disconnect(connection); }

  xcb_atom_t atom(const std::string& name) const {
    auto* reply = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr);
    const xcb_atom_t result = reply->atom;
    free(reply);
    return result;
  }
  void set(xcb_window_t window, const std::string& property, xcb_atom_t type,
           std::uint32_t value) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32, 1,
                        &value);
    sync();
  }
  xcb_window_t create(std::int32_t pid, bool overrideRedirect = false) const {
    const xcb_window_t window = xcb_generate_id(connection);
    const std::uint32_t flag = overrideRedirect;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 10, 10, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &flag);
    if (pid > 0) set(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, static_cast<std::uint32_t>(pid));
    xcb_flush(connection);
    return window;
  }
  void setClass(xcb_window_t window, std::string_view bytes) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    sync();
  }
  void map(xcb_window_t window) const {
    xcb_map_window(connection, window);
    xcb_flush(connection);
  }
  void destroy(xcb_window_t window) const {
    xcb_destroy_window(connection, window);
    xcb_flush(connection);
  }
  /// As a window manager would tell it; for displays that have none of their own.
  void tellActive(xcb_window_t window) const {
    set(root, "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, window);
    sync();
  }
  xcb_window_t active() const {
    auto* reply = xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
        nullptr);
    xcb_window_t result = XCB_WINDOW_NONE;
    if (xcb_get_property_value_length(reply) == sizeof result)
      result = *static_cast<xcb_window_t*>(xcb_get_property_value(reply));
    free(reply);
    return result;
  }

  /// Other connections see from here on what was asked for.
  void sync() const {
    free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  }

  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
};

}  // namespace qf
