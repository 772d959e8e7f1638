// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "foundation/Geometry.h"
#include "host/Menu.h"

namespace qf {

/// How one row of the palette looks: a bordered one is a button.
struct PaletteCell {
  bool isBordered = false;
  AttributedTitle title;
};

/// The table asks it for visible rows only. Rows are numbered from 0 to `numberOfRows` - 1 and stay
/// the same until `reloadData`. No call blocks.
class PaletteTableSource {
 public:
  virtual ~PaletteTableSource() = default;
  virtual std::size_t numberOfRows() const = 0;
  /// The row's name for a screen reader.
  virtual std::string objectValueForRow(std::size_t row) const = 0;
  virtual PaletteCell cellForRow(std::size_t row) const = 0;
  /// In the unit of the table's `rowHeight`.
  virtual double heightOfRow(std::size_t row) const = 0;
  virtual std::optional<std::string> toolTipForRow(std::size_t row) const = 0;
  virtual bool shouldSelectRow(std::size_t row) const = 0;
};

/// Receives the person's actions in the palette's window.
class PaletteWindowDelegate : public PaletteTableSource {
 public:
  /// A row's button was clicked, or Return pressed on it. The row is the table's selection, unless
  /// it cannot be selected. May block for long and may take the keyboard from the window.
  virtual void apply() = 0;
  virtual void editGroup() = 0;
  virtual void controlTextDidChange() = 0;
  /// Both may come late: a dragged window may report at the end.
  virtual void windowDidMove() = 0;
  virtual void windowDidResize() = 0;
};

class PalettePopUpButton {
 public:
  virtual ~PalettePopUpButton() = default;
  /// A pull-down's first item is its title, which cannot be chosen.
  virtual bool pullsDown() const = 0;
  /// Its items are drawn, and validated, each time it opens; a pick acts from the run loop.
  virtual Menu& menu() = 0;
  virtual void setTitle(const std::string& title) = 0;
};

/// A table of one column on the window's background. Rows cannot be edited.
class PaletteTableView {
 public:
  virtual ~PaletteTableView() = default;
  /// In device-independent pixels.
  virtual double rowHeight() const = 0;
  /// The space between two cells; negative to overlap them.
  virtual void setIntercellSpacing(Size spacing) = 0;
  virtual void reloadData() = 0;
  virtual std::optional<std::size_t> selectedRow() const = 0;
  virtual void deselectAll() = 0;
};

class PaletteSearchField {
 public:
  virtual ~PaletteSearchField() = default;
  virtual std::string stringValue() const = 0;
  /// Does not inform the delegate.
  virtual void setStringValue(const std::string& text) = 0;
};

/// A panel that floats above ordinary windows on every workspace, stays there while other
/// applications are active, is in no list of windows, and has no buttons in its title bar. Showing
/// or clicking it leaves the keyboard where it is, except for a click into the search field, or
/// when the person set it to take the keyboard on appearing. Main thread.
class PaletteWindow {
 public:
  virtual ~PaletteWindow() = default;
  virtual bool isVisible() const = 0;
  /// Shows it above the others, without making this application active.
  virtual void orderFront() = 0;
  virtual void orderOut() = 0;
  /// Returns the keyboard to the window that had it before; does nothing where this window does not
  /// have it. Waits until that is done, at most 250 ms.
  virtual void resignKeyWindow() = 0;

  /// The position and size that the person gave the window, as a text of the host's own format.
  virtual std::string stringWithSavedFrame() const = 0;
  /// The window is always placed on a visible screen. A malformed text changes nothing.
  virtual void setFrameFromString(const std::string& frame) = 0;

  virtual PalettePopUpButton& namePopup() = 0;
  virtual void setEditGroupButtonHidden(bool hidden) = 0;
  virtual PaletteTableView& cleanerListTableView() = 0;
  virtual PaletteSearchField& searchField() = 0;
};

/// Makes palette windows.
class PaletteWindows {
 public:
  virtual ~PaletteWindows() = default;
  /// Makes a hidden window. The delegate outlives it.
  virtual std::unique_ptr<PaletteWindow> makeWindow(PaletteWindowDelegate& delegate) = 0;
};

}  // namespace qf
