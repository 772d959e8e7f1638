// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/X11Windows.h"

#include <xcb/res.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace qf {
namespace {

using Deadline = X11Connection::Clock::time_point;
using PropertyReply = XcbPointer<xcb_get_property_reply_t>;

constexpr std::uint32_t longestProperty = 16 * 1024;  // in units of 4 bytes

constexpr const char* atomNames[] = {"_NET_ACTIVE_WINDOW",
                                     "_NET_CLIENT_LIST",
                                     "_NET_CLIENT_LIST_STACKING",
                                     "_NET_SUPPORTED",
                                     "_NET_WM_PID",
                                     "_NET_WM_WINDOW_TYPE",
                                     "_NET_WM_WINDOW_TYPE_DESKTOP",
                                     "_NET_WM_WINDOW_TYPE_DOCK",
                                     "WM_CLIENT_LEADER",
                                     "_QUENFOLD_TIME"};

std::string_view bytesOf(const PropertyReply& reply) {
  if (!reply || reply->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

/// WM_CLASS: two texts, each ended by a zero byte.
void readClass(std::string_view bytes, X11Window& window) {
  window.instanceName = bytes.substr(0, bytes.find('\0'));
  bytes.remove_prefix(std::min(bytes.size(), window.instanceName.size() + 1));
  window.className = bytes.substr(0, bytes.find('\0'));
}

}  // namespace

/// What leads to the process of a window that does not say: other windows that may know it, and
/// whether there is a window at all.
struct X11Windows::Links {
  xcb_window_t transientFor = XCB_WINDOW_NONE;
  xcb_window_t clientLeader = XCB_WINDOW_NONE;
  bool isThere = false;
};

X11Windows::X11Windows(std::function<void()> onActiveChanged)
    : _onActiveChanged(std::move(onActiveChanged)),
      _connection([this](const xcb_generic_event_t& event) { handleEvent(event); },
                  [this] {
                    if (std::exchange(_activeChanged, false)) _onActiveChanged();
                  }) {
  if (!_connection.isUsable()) return;
  internAtoms();
  const std::uint32_t propertyChanges = XCB_EVENT_MASK_PROPERTY_CHANGE;
  const xcb_window_t root = _connection.screen().root;
  xcb_change_window_attributes(_connection.get(), root, XCB_CW_EVENT_MASK, &propertyChanges);
  _timeWindow = xcb_generate_id(_connection.get());
  constexpr std::uint8_t noDepth = 0;
  xcb_create_window(_connection.get(), noDepth, _timeWindow, root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                    &propertyChanges);
  xcb_flush(_connection.get());
}

void X11Windows::internAtoms() {
  xcb_intern_atom_cookie_t cookies[atomCount];
  for (std::size_t i = 0; i < atomCount; ++i)
    cookies[i] = xcb_intern_atom(
        _connection.get(), 0, static_cast<std::uint16_t>(std::strlen(atomNames[i])), atomNames[i]);
  const Deadline deadline = X11Connection::deadline();
  for (std::size_t i = 0; i < atomCount; ++i)
    if (const auto reply = _connection.reply<xcb_intern_atom_reply_t>(cookies[i], deadline))
      _atoms[i] = reply->atom;
}

Availability X11Windows::availability() const {
  if (Availability state = _connection.availability(); !state.isAvailable) return state;
  const std::vector<std::uint32_t> supported = numbersOfRoot(netSupported, XCB_ATOM_ATOM);
  if (std::find(supported.begin(), supported.end(), _atoms[netActiveWindow]) == supported.end())
    return Availability::unavailable(
        "no window manager here tells which window is active; start one that knows "
        "_NET_ACTIVE_WINDOW");
  return Availability::available();
}

void X11Windows::handleEvent(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
  const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
  if (change.window == _timeWindow) _time = change.time;
  if (change.window == _connection.screen().root && change.atom == _atoms[netActiveWindow])
    _activeChanged = true;
}

xcb_get_property_cookie_t X11Windows::askFor(xcb_window_t window, xcb_atom_t property,
                                             xcb_atom_t type) const {
  return xcb_get_property(_connection.get(), 0, window, property, type, 0, longestProperty);
}

std::vector<std::uint32_t> X11Windows::numbers(xcb_get_property_cookie_t cookie,
                                               Deadline deadline) const {
  const auto reply = _connection.reply<xcb_get_property_reply_t>(cookie, deadline);
  if (!reply || reply->format != 32) return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + xcb_get_property_value_length(reply.get()) / 4};
}

std::vector<std::uint32_t> X11Windows::numbersOfRoot(Atom atom, xcb_atom_t type) const {
  if (!_connection.isUsable()) return {};
  return numbers(askFor(_connection.screen().root, _atoms[atom], type), X11Connection::deadline());
}

xcb_window_t X11Windows::activeWindow() const {
  const std::vector<std::uint32_t> active = numbersOfRoot(netActiveWindow, XCB_ATOM_WINDOW);
  return active.empty() ? xcb_window_t{XCB_WINDOW_NONE} : active.front();
}

std::vector<xcb_window_t> X11Windows::managedWindows() const {
  std::vector<std::uint32_t> windows = numbersOfRoot(netClientListStacking, XCB_ATOM_WINDOW);
  return windows.empty() ? numbersOfRoot(netClientList, XCB_ATOM_WINDOW) : windows;
}

X11Window X11Windows::describe(xcb_window_t window) const {
  return describe(std::vector{window}).front();
}

std::vector<X11Window> X11Windows::describe(const std::vector<xcb_window_t>& windows) const {
  std::vector<X11Window> described(windows.size());
  for (std::size_t i = 0; i < windows.size(); ++i) described[i].window = windows[i];
  if (!_connection.isUsable()) return described;

  struct Question {
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_property_cookie_t process, type, name, transientFor, clientLeader;
  };
  std::vector<Question> questions;
  questions.reserve(windows.size());
  for (const xcb_window_t window : windows)
    questions.push_back({xcb_get_window_attributes(_connection.get(), window),
                         askFor(window, _atoms[netWMPid], XCB_ATOM_CARDINAL),
                         askFor(window, _atoms[netWMWindowType], XCB_ATOM_ATOM),
                         askFor(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING),
                         askFor(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW),
                         askFor(window, _atoms[wmClientLeader], XCB_ATOM_WINDOW)});

  const Deadline deadline = X11Connection::deadline();
  const auto first = [&](xcb_get_property_cookie_t cookie) {
    const std::vector<std::uint32_t> all = numbers(cookie, deadline);
    return all.empty() ? 0U : all.front();
  };
  std::vector<Links> links(windows.size());
  for (std::size_t i = 0; i < windows.size(); ++i) {
    X11Window& window = described[i];
    const Question& question = questions[i];
    const auto attributes =
        _connection.reply<xcb_get_window_attributes_reply_t>(question.attributes, deadline);
    window.processIdentifier = static_cast<std::int32_t>(first(question.process));
    const std::vector<std::uint32_t> types = numbers(question.type, deadline);
    window.isPartOfDesktop =
        (attributes && attributes->override_redirect) ||
        std::any_of(types.begin(), types.end(), [this](xcb_atom_t type) {
          return type == _atoms[netWMWindowTypeDock] || type == _atoms[netWMWindowTypeDesktop];
        });
    readClass(bytesOf(_connection.reply<xcb_get_property_reply_t>(question.name, deadline)),
              window);
    links[i] = {first(question.transientFor), first(question.clientLeader), attributes != nullptr};
  }
  borrowProcessIdentifiers(described, links, deadline);
  askServerForProcessIdentifiers(described, links, deadline);
  return described;
}

void X11Windows::askServerForProcessIdentifiers(std::vector<X11Window>& windows,
                                                const std::vector<Links>& links,
                                                Deadline deadline) const {
  const auto* extension = xcb_get_extension_data(_connection.get(), &xcb_res_id);
  if (!extension || !extension->present) return;
  std::vector<std::pair<X11Window*, xcb_res_query_client_ids_cookie_t>> questions;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    X11Window& window = windows[i];
    if (window.processIdentifier > 0 || !links[i].isThere) continue;
    const xcb_res_client_id_spec_t spec{window.window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    questions.emplace_back(&window, xcb_res_query_client_ids(_connection.get(), 1, &spec));
  }
  for (const auto& [window, cookie] : questions) {
    const auto reply = _connection.reply<xcb_res_query_client_ids_reply_t>(cookie, deadline);
    if (!reply) continue;
    const auto id = xcb_res_query_client_ids_ids_iterator(reply.get());
    if (id.rem == 0 || xcb_res_client_id_value_value_length(id.data) == 0) continue;
    window->processIdentifier = static_cast<std::int32_t>(*xcb_res_client_id_value_value(id.data));
  }
}

void X11Windows::borrowProcessIdentifiers(std::vector<X11Window>& windows,
                                          const std::vector<Links>& links,
                                          Deadline deadline) const {
  for (std::size_t i = 0; i < windows.size(); ++i) {
    for (const xcb_window_t relative : {links[i].transientFor, links[i].clientLeader}) {
      if (windows[i].processIdentifier > 0) break;
      if (relative == XCB_WINDOW_NONE || relative == windows[i].window) continue;
      const std::vector<std::uint32_t> process =
          numbers(askFor(relative, _atoms[netWMPid], XCB_ATOM_CARDINAL), deadline);
      if (!process.empty()) windows[i].processIdentifier = static_cast<std::int32_t>(process[0]);
    }
  }
}

xcb_timestamp_t X11Windows::userTime() {
  // The server tells its time with each change of a property.
  _time = XCB_CURRENT_TIME;
  xcb_change_property(_connection.get(), XCB_PROP_MODE_APPEND, _timeWindow, _atoms[timeProbe],
                      XCB_ATOM_STRING, 8, 0, nullptr);
  _connection.handleEventsUntil([this] { return _time != XCB_CURRENT_TIME; },
                                X11Connection::Clock::now() + std::chrono::milliseconds(200));
  return _time;
}

void X11Windows::requestActivation(xcb_window_t window) {
  if (!_connection.isUsable()) return;
  constexpr std::uint32_t fromPager = 2;  // a direct wish of the user
  xcb_client_message_event_t message = {};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = _atoms[netActiveWindow];
  message.data.data32[0] = fromPager;
  message.data.data32[1] = userTime();
  xcb_send_event(_connection.get(), 0, _connection.screen().root,
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(_connection.get());
}

}  // namespace qf
