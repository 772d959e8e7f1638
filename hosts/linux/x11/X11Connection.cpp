// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/X11Connection.h"

#include <poll.h>
#include <xcb/xcbext.h>

#include <utility>

namespace qf {
namespace {

const xcb_screen_t* screenNumber(xcb_connection_t* connection, int number) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; screens.rem > 1 && number > 0; --number) xcb_screen_next(&screens);
  return screens.data;
}

}  // namespace

X11Connection::X11Connection(EventHandler onEvent, std::function<void()> onEventsHandled)
    : _onEvent(std::move(onEvent)), _onEventsHandled(std::move(onEventsHandled)) {
  int number = 0;
  _connection = xcb_connect(nullptr, &number);
  if (xcb_connection_has_error(_connection)) return;
  _screen = screenNumber(_connection, number);
  _notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(_connection),
                                                QSocketNotifier::Read);
  QObject::connect(_notifier.get(), &QSocketNotifier::activated, [this] { handleQueuedEvents(); });
}

X11Connection::~X11Connection() {
  _notifier.reset();
  xcb_disconnect(_connection);
}

Availability X11Connection::availability() const {
  if (!_screen)
    return Availability::unavailable(
        "there is no X display; the windows of other applications can be reached in an X11 session "
        "only");
  if (xcb_connection_has_error(_connection))
    return Availability::unavailable("the connection to the X display was lost; log in again");
  return Availability::available();
}

bool X11Connection::waitForInput(Clock::time_point deadline) const {
  const auto remaining =
      std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  if (remaining <= 0) return false;
  pollfd watched{xcb_get_file_descriptor(_connection), POLLIN, 0};
  return poll(&watched, 1, static_cast<int>(remaining)) != 0;
}

void* X11Connection::waitForReply(unsigned sequence, Clock::time_point deadline) const {
  if (!isUsable()) return nullptr;
  xcb_flush(_connection);
  void* reply = nullptr;
  xcb_generic_error_t* error = nullptr;
  while (!xcb_poll_for_reply(_connection, sequence, &reply, &error)) {
    if (!waitForInput(deadline)) {
      xcb_discard_reply(_connection, sequence);
      break;
    }
  }
  std::free(error);
  handleEventsSoon();
  return reply;
}

bool X11Connection::handleEventsUntil(const std::function<bool()>& isDone,
                                      Clock::time_point deadline) {
  xcb_flush(_connection);
  while (isUsable()) {
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(_connection)})
      _onEvent(*event);
    handleEventsSoon();
    if (isDone()) return true;
    if (!waitForInput(deadline)) return false;
  }
  return false;
}

void X11Connection::handleQueuedEvents() {
  while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(_connection)})
    _onEvent(*event);
  if (xcb_connection_has_error(_connection)) _notifier->setEnabled(false);
  _onEventsHandled();
}

void X11Connection::handleEventsSoon() const {
  // Waiting has read the socket empty: what came besides the reply would otherwise lie until the
  // next thing arrives.
  if (_handlesEventsSoon) return;
  _handlesEventsSoon = true;
  QMetaObject::invokeMethod(
      _notifier.get(),
      [self = const_cast<X11Connection*>(this)] {
        self->_handlesEventsSoon = false;
        self->handleQueuedEvents();
      },
      Qt::QueuedConnection);
}

}  // namespace qf
