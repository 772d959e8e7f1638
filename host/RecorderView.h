// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "foundation/Geometry.h"
#include "host/Availability.h"
#include "host/KeyEvent.h"

namespace qf {

/// The looks that a recorder can have.
enum class RecorderStyle : std::int32_t {
  roundRect = 0,
  texturedRounded = 1,
  rounded = 2,
  flat = 3
};

/// A button to draw, of the kind that stays down while it is on. Later ones lie over earlier ones.
struct RecorderCell {
  enum class Alignment : std::uint8_t { right = 1, center = 2 };

  std::string title;
  Alignment alignment = Alignment::center;
  bool isOn = false;
  bool isEnabled = true;
  RecorderStyle style = RecorderStyle::roundRect;  ///< flat: without border and ground
  double fontSize = 0;                             ///< in points
  Rect frame;                                      ///< in the view
  bool operator==(const RecorderCell&) const = default;
};

/// What a screen reader is told of a recorder, which is a button to it.
class RecorderAccessibility {
 public:
  virtual ~RecorderAccessibility() = default;
  virtual bool isEnabled() const = 0;
  virtual bool isRecording() const = 0;
  virtual std::string accessibilityLabel() const = 0;
  virtual std::string accessibilityHelp() const = 0;
  /// False where there was nothing to do.
  virtual bool accessibilityPerformPress() = 0;
};

/// Asked and told by the view. Places are in the view, its origin at the top left.
class RecorderViewDelegate : public RecorderAccessibility {
 public:
  virtual std::vector<RecorderCell> drawRect() const = 0;
  virtual Rect focusRingMaskBounds() const = 0;
  virtual bool acceptsFirstResponder() const = 0;
  /// False to have the press treated as the platform does.
  virtual bool mouseDown(Point location) = 0;
  // Of the tracking area.
  virtual void mouseEntered() = 0;
  virtual void mouseExited() = 0;
  /// Of the tool tip by its place in the list that was set.
  virtual std::optional<std::string> stringForToolTip(std::size_t tag) const = 0;
  virtual void boundsDidChange() = 0;
};

/// The place in a window where a recorder is seen and used. Main thread.
class RecorderView {
 public:
  /// True consumes the event, false lets it go on its way.
  using EventMonitor = std::function<bool(const KeyEvent& event)>;

  virtual ~RecorderView() = default;

  /// Null for none; the delegate goes before the view.
  virtual void setDelegate(RecorderViewDelegate* delegate) = 0;
  virtual Rect bounds() const = 0;
  /// Anything the delegate answers may be another now.
  virtual void setNeedsDisplay() = 0;
  /// Entering and leaving it is told whether or not the window is active. The mouse is taken to be
  /// inside at first.
  virtual void setTrackingArea(std::optional<Rect> area) = 0;
  virtual void setToolTips(std::vector<Rect> areas) = 0;

  /// Hears, from the run loop, each press of a key or modifier, and each release of a modifier,
  /// that reaches this process, before anything else does. Until it is set to an empty function,
  /// the view's window holds the keyboard, so that combinations which other programs answer to
  /// come here; it lets go of it, too, once the view cannot be seen. The desktop's own
  /// combinations for closing a window and quitting are presented as Command-W and Command-Q.
  virtual void setEventMonitor(EventMonitor monitor) = 0;
  /// Runs once the view's window has lost the keyboard to another, or the view is hidden.
  virtual void setResignKeyObserver(std::function<void()> observer) = 0;

  /// Has a screen reader say the text; the priority is the platform's (90 is high).
  virtual void postAnnouncement(const std::string& text, int priority) = 0;

  /// Unavailable while the monitor hears less than it should, with the reason.
  virtual Availability availability() const = 0;
};

}  // namespace qf
