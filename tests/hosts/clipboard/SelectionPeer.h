// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include "foundation/Value.h"
#include "hosts/linux/clipboard/ClipboardAtoms.h"

namespace qf {

/// Another application's end of the clipboard, one bare step at a time, so that a test can leave
/// steps out.
class SelectionPeer {
 public:
  using Clock = XcbConnection::Clock;

  SelectionPeer()
      : connection({}),
        atoms(connection),
        window(connection.createWindow(XCB_EVENT_MASK_PROPERTY_CHANGE)) {}

  xcb_atom_t atom(const char* name) { return connection.atom(name); }

  void ask(xcb_atom_t target, xcb_atom_t property, xcb_timestamp_t time = XCB_CURRENT_TIME) {
    xcb_convert_selection(connection.get(), window, atoms.clipboard, target, property, time);
    xcb_flush(connection.get());
  }
  /// The answer's property; none for a refusal.
  xcb_atom_t answer() {
    const auto event = next(XCB_SELECTION_NOTIFY);
    return event ? reinterpret_cast<xcb_selection_notify_event_t&>(*event).property : 0xFFFF;
  }
  xcb_atom_t answerTo(xcb_atom_t target, xcb_timestamp_t time = XCB_CURRENT_TIME) {
    ask(target, atoms.transfer, time);
    return answer();
  }
  XcbConnection::Owned<xcb_get_property_reply_t> property(xcb_atom_t name, bool takes) {
    return connection.reply(
        xcb_get_property_reply,
        xcb_get_property(connection.get(), takes, window, name, XCB_ATOM_ANY, 0, 1u << 28));
  }
  std::vector<std::uint32_t> numbers(xcb_atom_t name) {
    const auto value = property(name, true);
    std::vector<std::uint32_t> result(value->value_len);
    std::memcpy(result.data(), xcb_get_property_value(value.get()), result.size() * 4);
    return result;
  }
  void put(xcb_window_t where, xcb_atom_t name, xcb_atom_t type, int format, std::size_t count,
           const void* data) {
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, where, name, type,
                        static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(count), data);
    xcb_flush(connection.get());
  }

  void own(xcb_atom_t selection) {
    xcb_set_selection_owner(connection.get(), window, selection, XCB_CURRENT_TIME);
    connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection.get()));
  }
  void notify(const xcb_selection_request_event_t& request, xcb_atom_t property) {
    char bytes[32] = {};
    auto& notice = reinterpret_cast<xcb_selection_notify_event_t&>(bytes);
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = property;
    xcb_send_event(connection.get(), 0, request.requestor, 0, bytes);
    xcb_flush(connection.get());
  }

  XcbConnection::Event next(int type,
                            std::chrono::milliseconds patience = std::chrono::seconds(5)) {
    const auto deadline = Clock::now() + patience;
    while (auto event = connection.nextEvent(deadline)) {
      if ((event->response_type & 0x7f) == type) return event;
    }
    return nullptr;
  }

  XcbConnection connection;
  ClipboardAtoms atoms;
  xcb_window_t window;
};

/// Owns a selection and treats each request as the test says, on a thread of its own.
class SelectionOwner {
 public:
  /// False ends the owner's connection, as a crash would.
  using Treatment =
      std::function<bool(SelectionPeer& peer, const xcb_selection_request_event_t& request)>;

  SelectionOwner(const char* selection, Treatment treat) : _treat(std::move(treat)) {
    auto peer = std::make_unique<SelectionPeer>();
    peer->own(peer->atom(selection));
    _thread = std::thread([this, owned = std::move(peer)]() mutable {
      while (!_isEnding) {
        const auto event = owned->next(XCB_SELECTION_REQUEST, std::chrono::milliseconds(20));
        if (event && !_treat(*owned, reinterpret_cast<xcb_selection_request_event_t&>(*event)))
          owned.reset();
        if (!owned) return;
      }
    });
  }
  ~SelectionOwner() {
    _isEnding = true;
    _thread.join();
  }

 private:
  Treatment _treat;
  std::atomic<bool> _isEnding = false;
  std::thread _thread;
};

}  // namespace qf
