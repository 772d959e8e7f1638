// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/Availability.h"

namespace qf {

/// One connection to the X server with the XFixes extension, and the atoms seen on it. Used by one
/// thread at a time. A lost server shows as `isAlive` false and as absent replies and events.
class XcbConnection {
 public:
  using Clock = std::chrono::steady_clock;

  struct Free {
    void operator()(void* memory) const { std::free(memory); }
  };
  /// Memory that libxcb hands over to the caller.
  template <class T>
  using Owned = std::unique_ptr<T, Free>;
  using Event = Owned<xcb_generic_event_t>;

  /// An empty display name is the session's own (DISPLAY).
  explicit XcbConnection(const std::string& displayName);
  ~XcbConnection();
  XcbConnection(const XcbConnection&) = delete;
  XcbConnection& operator=(const XcbConnection&) = delete;

  xcb_connection_t* get() const { return _connection; }
  bool isAlive() const;
  Availability availability() const;

  /// An invisible window for properties and selections.
  xcb_window_t createWindow(std::uint32_t eventMask);
  /// Keeps the window for a while without listening to it: many applications end on the error that
  /// a late answer to a window which is gone would bring them.
  void abandonWindow(xcb_window_t window);

  xcb_atom_t atom(std::string_view name);
  /// In one round trip. XCB_ATOM_NONE where the server gives none.
  std::vector<xcb_atom_t> atoms(std::span<const std::string> names);
  /// In one round trip. Empty where there is no such atom.
  std::vector<std::string> atomNames(std::span<const xcb_atom_t> atoms);

  /// How many bytes one request may carry as a property's data.
  std::size_t maximumPropertySize() const;

  /// Whether the event is the XFixes notice about a selection.
  bool isSelectionNotice(const xcb_generic_event_t& event) const {
    return (event.response_type & 0x7f) == _firstXFixesEvent + XCB_XFIXES_SELECTION_NOTIFY;
  }

  /// Null when none came until the deadline, or the server is lost.
  Event nextEvent(Clock::time_point deadline);

  template <class Reply, class Cookie>
  Owned<Reply> reply(Reply* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                     Cookie cookie) {
    return Owned<Reply>(wait(_connection, cookie, nullptr));
  }

 private:
  bool startXFixes();

  xcb_connection_t* _connection;
  std::string _fault;  // why there is no usable server
  xcb_window_t _root = XCB_WINDOW_NONE;
  int _firstXFixesEvent = 0;
  std::unordered_map<std::string, xcb_atom_t> _atoms;
  std::deque<xcb_window_t> _abandonedWindows;
};

}  // namespace qf
