// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Availability.h"
#include "hosts/linux/x11/X11Connection.h"

namespace qf {

/// What a window says of itself and its application.
struct X11Window {
  xcb_window_t window = XCB_WINDOW_NONE;
  std::int32_t processIdentifier = 0;  ///< 0 when it does not say
  std::string instanceName;            ///< the two names of WM_CLASS
  std::string className;
  bool isPartOfDesktop = false;  ///< a panel, the desktop itself, a pop-up menu
};

/// The windows that the window manager manages, by the Extended Window Manager Hints 1.5. Main
/// thread. No call blocks longer than 1 s; what cannot be had in that time is empty.
class X11Windows {
 public:
  /// `onActiveChanged` runs from the run loop.
  explicit X11Windows(std::function<void()> onActiveChanged);

  Availability availability() const;

  /// `XCB_WINDOW_NONE` when there is none.
  xcb_window_t activeWindow() const;
  /// From the bottom to the top.
  std::vector<xcb_window_t> managedWindows() const;
  X11Window describe(xcb_window_t window) const;
  /// In the same order.
  std::vector<X11Window> describe(const std::vector<xcb_window_t>& windows) const;

  /// Asks the window manager, which may take its time or refuse.
  void requestActivation(xcb_window_t window);

 private:
  enum Atom : std::size_t {
    netActiveWindow,
    netClientList,
    netClientListStacking,
    netSupported,
    netWMPid,
    netWMWindowType,
    netWMWindowTypeDesktop,
    netWMWindowTypeDock,
    wmClientLeader,
    timeProbe,
    atomCount
  };
  struct Links;

  void internAtoms();
  void handleEvent(const xcb_generic_event_t& event);
  xcb_get_property_cookie_t askFor(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
  std::vector<std::uint32_t> numbers(xcb_get_property_cookie_t cookie,
                                     X11Connection::Clock::time_point deadline) const;
  std::vector<std::uint32_t> numbersOfRoot(Atom atom, xcb_atom_t type) const;
  /// The server knows the processes of local clients (X-Resource extension 1.2).
  void askServerForProcessIdentifiers(std::vector<X11Window>& windows,
                                      const std::vector<Links>& links,
                                      X11Connection::Clock::time_point deadline) const;
  void borrowProcessIdentifiers(std::vector<X11Window>& windows, const std::vector<Links>& links,
                                X11Connection::Clock::time_point deadline) const;
  xcb_timestamp_t userTime();

  std::function<void()> _onActiveChanged;
  X11Connection _connection;
  xcb_atom_t _atoms[atomCount] = {};
  xcb_window_t _timeWindow = XCB_WINDOW_NONE;
  xcb_timestamp_t _time = XCB_CURRENT_TIME;
  bool _activeChanged = false;
};

}  // namespace qf
