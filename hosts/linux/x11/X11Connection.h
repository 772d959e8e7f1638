// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>

#include <QSocketNotifier>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "host/Availability.h"

namespace qf {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using XcbPointer = std::unique_ptr<T, FreeDeleter>;

/// A connection to the X server that outlives the server's loss and never waits for it without
/// limit. Main thread.
class X11Connection {
 public:
  using Clock = std::chrono::steady_clock;
  using EventHandler = std::function<void(const xcb_generic_event_t& event)>;

  /// To the display of the session. Events reach the handler from the run loop; `onEventsHandled`
  /// follows after each batch.
  X11Connection(EventHandler onEvent, std::function<void()> onEventsHandled);
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  Availability availability() const;
  bool isUsable() const { return _screen && !xcb_connection_has_error(_connection); }
  xcb_connection_t* get() const { return _connection; }
  const xcb_screen_t& screen() const { return *_screen; }

  /// A limit for one call of the host's interface.
  static Clock::time_point deadline() { return Clock::now() + std::chrono::milliseconds(900); }

  /// Null for an error, a lost server, or none before the deadline. Any cookie with a reply.
  template <class Reply, class Cookie>
  XcbPointer<Reply> reply(Cookie cookie, Clock::time_point deadline) const {
    return XcbPointer<Reply>(static_cast<Reply*>(waitForReply(cookie.sequence, deadline)));
  }

  /// Handles events as they come, until that is true; false when the deadline passed first.
  bool handleEventsUntil(const std::function<bool()>& isDone, Clock::time_point deadline);

 private:
  void* waitForReply(unsigned sequence, Clock::time_point deadline) const;
  bool waitForInput(Clock::time_point deadline) const;
  void handleQueuedEvents();
  void handleEventsSoon() const;

  EventHandler _onEvent;
  std::function<void()> _onEventsHandled;
  xcb_connection_t* _connection;
  const xcb_screen_t* _screen = nullptr;
  std::unique_ptr<QSocketNotifier> _notifier;
  mutable bool _handlesEventsSoon = false;
};

}  // namespace qf
