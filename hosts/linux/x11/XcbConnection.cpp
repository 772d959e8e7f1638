// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/XcbConnection.h"

#include <poll.h>

namespace qf {

XcbConnection::XcbConnection(const std::string& displayName) {
  int screenNumber = 0;
  _connection = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &screenNumber);
  if (xcb_connection_has_error(_connection)) {
    const char* display = displayName.empty() ? std::getenv("DISPLAY") : displayName.c_str();
    _fault = display ? "cannot connect to the X server " + std::string(display)
                     : "no X server: DISPLAY is not set";
    return;
  }
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(_connection));
  for (; screenNumber > 0 && screens.rem > 1; --screenNumber) xcb_screen_next(&screens);
  _root = screens.data->root;
  if (!startXFixes()) _fault = "the X server lacks the XFIXES extension";
}

XcbConnection::~XcbConnection() { xcb_disconnect(_connection); }

bool XcbConnection::startXFixes() {
  const auto* extension = xcb_get_extension_data(_connection, &xcb_xfixes_id);
  if (!extension || !extension->present) return false;
  _firstXFixesEvent = extension->first_event;
  return reply(xcb_xfixes_query_version_reply, xcb_xfixes_query_version(_connection, 1, 0)) !=
         nullptr;
}

bool XcbConnection::isAlive() const {
  return _fault.empty() && !xcb_connection_has_error(_connection);
}

Availability XcbConnection::availability() const {
  if (!_fault.empty()) return Availability::unavailable(_fault);
  if (!isAlive()) return Availability::unavailable("the X server closed the connection");
  return Availability::available();
}

xcb_window_t XcbConnection::createWindow(std::uint32_t eventMask) {
  const xcb_window_t window = xcb_generate_id(_connection);
  xcb_create_window(_connection, 0, window, _root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &eventMask);
  return window;
}

void XcbConnection::abandonWindow(xcb_window_t window) {
  constexpr std::size_t mostKept = 32;
  const std::uint32_t noEvents = XCB_EVENT_MASK_NO_EVENT;
  xcb_change_window_attributes(_connection, window, XCB_CW_EVENT_MASK, &noEvents);
  _abandonedWindows.push_back(window);
  if (_abandonedWindows.size() <= mostKept) return;
  xcb_destroy_window(_connection, _abandonedWindows.front());
  _abandonedWindows.pop_front();
}

xcb_atom_t XcbConnection::atom(std::string_view name) {
  const std::string names[] = {std::string(name)};
  return atoms(names).front();
}

std::vector<xcb_atom_t> XcbConnection::atoms(std::span<const std::string> names) {
  std::unordered_map<std::string, xcb_intern_atom_cookie_t> asked;
  for (const std::string& name : names) {
    if (_atoms.contains(name) || asked.contains(name)) continue;
    asked[name] =
        xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  }
  for (const auto& [name, cookie] : asked) {
    if (const auto answer = reply(xcb_intern_atom_reply, cookie)) _atoms[name] = answer->atom;
  }
  std::vector<xcb_atom_t> result;
  for (const std::string& name : names) {
    const auto known = _atoms.find(name);
    result.push_back(known == _atoms.end() ? xcb_atom_t{XCB_ATOM_NONE} : known->second);
  }
  return result;
}

std::vector<std::string> XcbConnection::atomNames(std::span<const xcb_atom_t> atoms) {
  std::vector<xcb_get_atom_name_cookie_t> asked;
  for (const xcb_atom_t atom : atoms) asked.push_back(xcb_get_atom_name(_connection, atom));
  std::vector<std::string> names;
  for (const auto cookie : asked) {
    const auto answer = reply(xcb_get_atom_name_reply, cookie);
    names.emplace_back(answer ? std::string(xcb_get_atom_name_name(answer.get()),
                                            xcb_get_atom_name_name_length(answer.get()))
                              : std::string());
  }
  return names;
}

std::size_t XcbConnection::maximumPropertySize() const {
  return std::size_t{xcb_get_maximum_request_length(_connection)} * 4 - 64;
}

XcbConnection::Event XcbConnection::nextEvent(Clock::time_point deadline) {
  xcb_flush(_connection);
  for (;;) {
    if (Event event{xcb_poll_for_event(_connection)}) return event;
    const auto remaining =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (!isAlive() || remaining <= 0) return nullptr;
    pollfd watched{xcb_get_file_descriptor(_connection), POLLIN, 0};
    poll(&watched, 1, static_cast<int>(remaining));
  }
}

}  // namespace qf
