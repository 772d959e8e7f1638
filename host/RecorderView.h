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

/// How a recorder looks.
enum class RecorderStyle : std::int32_t {
  roundRect = 0,
  texturedRounded = 1,
  rounded = 2,
  flat = 3
};

/// A toggle button to draw. Later ones are drawn over earlier ones.
struct RecorderCell {
  enum class Alignment : std::uint8_t { right = 1, center = 2 };

  std::string title;
  Alignment alignment = Alignment::center;
  bool isOn = false;
  bool isEnabled = true;
  RecorderStyle style = RecorderStyle::roundRect;  ///< flat: no border and no background
  double fontSize = 0;                             ///< in points
  Rect frame;                                      ///< in the view's coordinates
  bool operator==(const RecorderCell&) const = default;
};

/// What a screen reader learns about a recorder, which it sees as a button.
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

/// The view asks and informs it. Coordinates are the view's, from its top left.
class RecorderViewDelegate : public RecorderAccessibility {
 public:
  virtual std::vector<RecorderCell> drawRect() const = 0;
  virtual Rect focusRingMaskBounds() const = 0;
  virtual bool acceptsFirstResponder() const = 0;
  /// False to have the press treated as the platform does.
  virtual bool mouseDown(Point location) = 0;
  // Events of the tracking area.
  virtual void mouseEntered() = 0;
  virtual void mouseExited() = 0;
  /// The text of the tool tip with that index in the list that was set.
  virtual std::optional<std::string> stringForToolTip(std::size_t tag) const = 0;
  virtual void boundsDidChange() = 0;
};

/// The visible part of a recorder in a window. Main thread.
class RecorderView {
 public:
  /// True consumes the event, false passes it on.
  using EventMonitor = std::function<bool(const KeyEvent& event)>;

  virtual ~RecorderView() = default;

  /// Null for none. The view outlives its delegate.
  virtual void setDelegate(RecorderViewDelegate* delegate) = 0;
  virtual Rect bounds() const = 0;
  /// All answers of the delegate may have changed.
  virtual void setNeedsDisplay() = 0;
  /// Entering and leaving are reported whether or not the window is active. At first the mouse is
  /// taken to be inside.
  virtual void setTrackingArea(std::optional<Rect> area) = 0;
  virtual void setToolTips(std::vector<Rect> areas) = 0;

  /// The monitor sees, from the run loop and before anything else, each press of a key or modifier
  /// and each release of a modifier that reaches this process. Until the monitor is set to an empty
  /// function or the view becomes invisible, the view's window grabs the keyboard, so that
  /// combinations of other programs arrive here. The desktop's combinations for closing a window
  /// and quitting arrive as Command-W and Command-Q.
  virtual void setEventMonitor(EventMonitor monitor) = 0;
  /// Runs when the view's window has lost the keyboard to another window, or the view is hidden.
  virtual void setResignKeyObserver(std::function<void()> observer) = 0;

  /// Has a screen reader say the text; the priority is the platform's (90 is high).
  virtual void postAnnouncement(const std::string& text, int priority) = 0;

  /// Unavailable while the monitor hears less than it should, with the reason.
  virtual Availability availability() const = 0;
};

}  // namespace qf
