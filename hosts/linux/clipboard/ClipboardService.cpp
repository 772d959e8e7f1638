// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardService.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

#include "foundation/Log.h"
#include "hosts/linux/clipboard/BrokenPipeGuard.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto answerLimit = 2s;
constexpr auto farewellLimit = 1s;

template <class Event>
const Event& as(const xcb_generic_event_t& event) {
  return reinterpret_cast<const Event&>(event);
}

}  // namespace

ClipboardService::ClipboardService(const std::string& displayName)
    : _connection(displayName),
      _atoms(_connection),
      _transfers(_connection, _atoms),
      _wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      _availability(_connection.availability()) {
  if (!_connection.isAlive()) return;
  _window = _connection.createWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);
  constexpr std::uint32_t everyChange = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
  for (const xcb_atom_t selection : {_atoms.clipboard, xcb_atom_t{XCB_ATOM_PRIMARY}})
    xcb_xfixes_select_selection_input(_connection.get(), _window, selection, everyChange);
  // An answer means that no later change can be missed.
  const auto owner = _connection.reply(
      xcb_get_selection_owner_reply, xcb_get_selection_owner(_connection.get(), _atoms.clipboard));
  if (owner) _ownership.owner = owner->owner;
  _thread = std::thread([this] { run(); });
}

ClipboardService::~ClipboardService() {
  {
    const std::lock_guard lock(_mutex);
    _isEnding = true;
  }
  wake();
  if (_thread.joinable()) _thread.join();
  close(_wakeUp);
}

Availability ClipboardService::availability() const {
  const std::lock_guard lock(_mutex);
  return _availability;
}

std::shared_ptr<const ClipboardContents> ClipboardService::contents() const {
  const std::lock_guard lock(_mutex);
  return _contents;
}

ClipboardOwnership ClipboardService::ownership() const {
  const std::lock_guard lock(_mutex);
  return _ownership;
}

std::optional<ClipboardOwnership> ClipboardService::settledOwnership() const {
  Inquiry inquiry;
  auto answer = inquiry.get_future();
  {
    const std::lock_guard lock(_mutex);
    if (!_availability.isAvailable || _isEnding) return std::nullopt;
    _inquiries.push_back(std::move(inquiry));
  }
  wake();
  if (answer.wait_for(answerLimit) != std::future_status::ready) return std::nullopt;
  return answer.get();
}

std::optional<ClipboardOwnership> ClipboardService::own(
    std::shared_ptr<const ClipboardContents> contents, std::optional<std::string_view> from) {
  auto wish = std::make_unique<Wish>();
  wish->contents = std::move(contents);
  wish->from = from;
  wish->deadline = Clock::now() + answerLimit;
  const auto deadline = wish->deadline;
  auto granted = wish->granted.get_future();
  {
    const std::lock_guard lock(_mutex);
    if (!_availability.isAvailable || _isEnding) return std::nullopt;
    _wishes.push_back(std::move(wish));
  }
  wake();
  if (granted.wait_until(deadline) != std::future_status::ready) return std::nullopt;
  return granted.get();
}

void ClipboardService::wake() const { eventfd_write(_wakeUp, 1); }

bool ClipboardService::isEnding() const {
  const std::lock_guard lock(_mutex);
  return _isEnding && _wishes.empty() && !_wish;
}

void ClipboardService::run() {
  const BrokenPipeGuard guard;
  serveUntil([this] { return isEnding(); }, std::nullopt);
  if (_connection.isAlive()) handToManager();
  finish();
}

// Events that libxcb has read already don't show on the socket: nothing may be sent or asked for
// between the last look at them and the wait.
void ClipboardService::serveUntil(const std::function<bool()>& isDone,
                                  std::optional<Clock::time_point> deadline) {
  while (_connection.isAlive()) {
    do {
      answerInquiries();
      askForTime();
      xcb_flush(_connection.get());
    } while (handleEvents());
    if (isDone() || (deadline && Clock::now() >= *deadline)) return;
    waitForInput(deadline);
    _transfers.forgetStalled();
  }
}

void ClipboardService::waitForInput(std::optional<Clock::time_point> deadline) const {
  const auto expiry = _transfers.nextExpiry();
  auto limit = deadline.value_or(Clock::time_point::max());
  if (expiry) limit = std::min(limit, *expiry);
  int milliseconds = -1;
  if (limit != Clock::time_point::max()) {
    const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(limit - Clock::now());
    milliseconds = static_cast<int>(std::max(remaining, 0ms).count());
  }
  std::array<pollfd, 2> watched{
      {{xcb_get_file_descriptor(_connection.get()), POLLIN, 0}, {_wakeUp, POLLIN, 0}}};
  poll(watched.data(), watched.size(), milliseconds);
  eventfd_t count = 0;
  eventfd_read(_wakeUp, &count);
}

bool ClipboardService::handleEvents() {
  bool handled = false;
  while (const XcbConnection::Event event{xcb_poll_for_event(_connection.get())}) {
    handle(*event);
    handled = true;
  }
  return handled;
}

void ClipboardService::handle(const xcb_generic_event_t& event) {
  if (_connection.isSelectionNotice(event))
    return ownerChanged(as<xcb_xfixes_selection_notify_event_t>(event));
  switch (event.response_type & 0x7f) {
    case 0:  // an error
      if (as<xcb_generic_error_t>(event).error_code == XCB_WINDOW)
        _transfers.requestorGone(as<xcb_generic_error_t>(event).resource_id);
      break;
    case XCB_SELECTION_REQUEST:
      _transfers.answer(as<xcb_selection_request_event_t>(event));
      break;
    case XCB_DESTROY_NOTIFY:
      _transfers.requestorGone(as<xcb_destroy_notify_event_t>(event).window);
      break;
    case XCB_SELECTION_NOTIFY:
      if (as<xcb_selection_notify_event_t>(event).selection == _atoms.clipboardManager)
        _managerAnswered = true;
      break;
    case XCB_PROPERTY_NOTIFY: {
      const auto& changed = as<xcb_property_notify_event_t>(event);
      if (changed.window != _window && changed.state == XCB_PROPERTY_DELETE)
        _transfers.propertyDeleted(changed.window, changed.atom);
      if (changed.window == _window && changed.atom == _atoms.transfer && _wish)
        takeOwnership(changed.time);
      break;
    }
  }
}

// To own a selection takes a time of the server (ICCCM 2.1), which a change of a property tells.
void ClipboardService::askForTime() {
  if (_wish) return;
  const std::lock_guard lock(_mutex);
  while (!_wishes.empty() && !_wish) {
    _wish = std::move(_wishes.front());
    _wishes.pop_front();
    if (_wish->deadline > Clock::now()) continue;
    _wish->granted.set_value(std::nullopt);
    _wish.reset();
  }
  if (_wish) touchTime();
}

void ClipboardService::touchTime() {
  xcb_change_property(_connection.get(), XCB_PROP_MODE_APPEND, _window, _atoms.transfer,
                      XCB_ATOM_INTEGER, 32, 0, nullptr);
}

// The contents change with the server's notice, in the order in which owners changed. All changes
// up to `time` are known here, and the server refuses that time once a later change has been made
// (ICCCM 2.1): nothing can come between the comparison and the claim.
void ClipboardService::takeOwnership(xcb_timestamp_t time) {
  // Two changes by one window within the same millisecond could not be told apart.
  if (const auto last = ownership(); last.owner == _window && last.since == time)
    return touchTime();
  _taken.reset();
  const auto wish = std::move(_wish);
  if (!wish->from || ownership().isNamed(*wish->from)) {
    _pending = wish->contents;
    xcb_set_selection_owner(_connection.get(), _window, _atoms.clipboard, time);
    settle();
    _pending.reset();
  }
  wish->granted.set_value(_taken);
}

// The server's notices of all that it has done come before its answer.
void ClipboardService::settle() {
  _connection.reply(xcb_get_selection_owner_reply,
                    xcb_get_selection_owner(_connection.get(), _atoms.clipboard));
  handleEvents();
}

void ClipboardService::answerInquiries() {
  std::vector<Inquiry> inquiries;
  {
    const std::lock_guard lock(_mutex);
    inquiries.swap(_inquiries);
  }
  if (inquiries.empty()) return;
  settle();
  for (Inquiry& inquiry : inquiries) inquiry.set_value(ownership());
}

void ClipboardService::ownerChanged(const xcb_xfixes_selection_notify_event_t& notice) {
  if (notice.selection == XCB_ATOM_PRIMARY) {
    if (notice.owner == XCB_WINDOW_NONE) _primaryGivenUp = Clock::now();
    return;
  }
  const bool isOurs = notice.owner == _window && _pending;
  const ClipboardOwnership ownership{notice.owner, notice.selection_timestamp};
  if (isOurs) _taken = ownership;
  const auto contents = isOurs ? std::exchange(_pending, nullptr) : nullptr;
  _transfers.offer(contents.get(), notice.selection_timestamp);
  const std::lock_guard lock(_mutex);
  _contents = contents;
  _ownership = ownership;
  ++_changeCount;
}

// The clipboard manager protocol of freedesktop.org.
void ClipboardService::handToManager() {
  const auto saved = contents();
  const auto manager =
      _connection.reply(xcb_get_selection_owner_reply,
                        xcb_get_selection_owner(_connection.get(), _atoms.clipboardManager));
  const bool isSaving = saved && !saved->offers().empty() && manager && manager->owner;
  if (isSaving) {
    std::vector<std::string> names;
    for (const auto& offer : saved->offers()) names.push_back(offer.target);
    const auto targets = _connection.atoms(names);
    xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, _window, _atoms.saveList,
                        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(targets.size()),
                        targets.data());
    xcb_convert_selection(_connection.get(), _window, _atoms.clipboardManager, _atoms.saveTargets,
                          _atoms.saveList, ownership().since);
  }
  serveUntil([&] { return (!isSaving || _managerAnswered) && !_transfers.isBusy(); },
             Clock::now() + farewellLimit);
}

// From here on nobody is served and nothing can be owned.
void ClipboardService::finish() {
  const std::lock_guard lock(_mutex);
  if (!_isEnding) {
    _availability = _connection.availability();
    log("The clipboard cannot be reached any more: " + _availability.reason);
  }
  _contents.reset();
  if (_wish) _wishes.push_back(std::move(_wish));
  for (const auto& wish : _wishes) wish->granted.set_value(std::nullopt);
  _wishes.clear();
  for (Inquiry& inquiry : _inquiries) inquiry.set_value(std::nullopt);
  _inquiries.clear();
}

}  // namespace qf
