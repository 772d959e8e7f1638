// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/PanelWindows.h"

#include <algorithm>
#include <string_view>

namespace qf {
namespace {

constexpr std::uint32_t longestProperty = 4 * 1024;  // in units of 4 bytes

/// The requests of one answer, all under one deadline.
class Question {
 public:
  explicit Question(const X11Connection& connection) : _connection(connection) {}

  xcb_atom_t atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = _connection.reply<xcb_intern_atom_reply_t>(cookie, _deadline);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  std::vector<std::uint32_t> numbers(xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t type) const {
    const auto cookie =
        xcb_get_property(_connection.get(), 0, window, property, type, 0, longestProperty);
    const auto reply = _connection.reply<xcb_get_property_reply_t>(cookie, _deadline);
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / 4};
  }

  QRect place(xcb_window_t window) const {
    const auto geometry = _connection.reply<xcb_get_geometry_reply_t>(
        xcb_get_geometry(_connection.get(), window), _deadline);
    const auto origin = _connection.reply<xcb_translate_coordinates_reply_t>(
        xcb_translate_coordinates(_connection.get(), window, _connection.screen().root, 0, 0),
        _deadline);
    if (!geometry || !origin) return {};
    return {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
  }

 private:
  const X11Connection& _connection;
  X11Connection::Clock::time_point _deadline = X11Connection::deadline();
};

}  // namespace

std::vector<QRect> panelWindows(const X11Connection& connection) {
  if (!connection.isUsable()) return {};
  const Question question(connection);
  const xcb_atom_t type = question.atom("_NET_WM_WINDOW_TYPE");
  const xcb_atom_t dock = question.atom("_NET_WM_WINDOW_TYPE_DOCK");
  std::vector<QRect> panels;
  for (const xcb_window_t window : question.numbers(
           connection.screen().root, question.atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW)) {
    const auto types = question.numbers(window, type, XCB_ATOM_ATOM);
    if (std::find(types.begin(), types.end(), dock) == types.end()) continue;
    if (const QRect place = question.place(window); !place.isEmpty()) panels.push_back(place);
  }
  return panels;
}

}  // namespace qf
