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

/// Asked by the table for the rows that it shows, and for no others. Rows count from 0 to
/// `numberOfRows` - 1 and stay the same until `reloadData`. No answer blocks.
class PaletteTableSource {
 public:
  virtual ~PaletteTableSource() = default;
  virtual std::size_t numberOfRows() const = 0;
  /// What the row stands for, as a screen reader says it.
  virtual std::string objectValueForRow(std::size_t row) const = 0;
  virtual PaletteCell cellForRow(std::size_t row) const = 0;
  /// In the unit of the table's `rowHeight`.
  virtual double heightOfRow(std::size_t row) const = 0;
  virtual std::optional<std::string> toolTipForRow(std::size_t row) const = 0;
  virtual bool shouldSelectRow(std::size_t row) const = 0;
};

/// Told of what the person does in the palette's window.
class PaletteWindowDelegate : public PaletteTableSource {
 public:
  /// A row's button was clicked, or Return pressed on it: it is the table's selected row, unless it
  /// may not be selected. May block for long and may take the keyboard from the window.
  virtual void apply() = 0;
  virtual void editGroup() = 0;
  virtual void controlTextDidChange() = 0;
  /// Neither need come at once: a window that is dragged may tell at the end.
  virtual void windowDidMove() = 0;
  virtual void windowDidResize() = 0;
};

class PalettePopUpButton {
 public:
  virtual ~PalettePopUpButton() = default;
  /// A pull-down's first item is its title and is not among those to choose from.
  virtual bool pullsDown() const = 0;
  /// Its items are drawn, and validated, each time it opens; a pick acts from the run loop.
  virtual Menu& menu() = 0;
  virtual void setTitle(const std::string& title) = 0;
};

/// A table of one column, as wide as the table, on the window's own ground. Rows are not edited.
class PaletteTableView {
 public:
  virtual ~PaletteTableView() = default;
  /// In device-independent pixels.
  virtual double rowHeight() const = 0;
  /// What lies between two cells; where it is negative, they overlap by as much.
  virtual void setIntercellSpacing(Size spacing) = 0;
  virtual void reloadData() = 0;
  virtual std::optional<std::size_t> selectedRow() const = 0;
  virtual void deselectAll() = 0;
};

class PaletteSearchField {
 public:
  virtual ~PaletteSearchField() = default;
  virtual std::string stringValue() const = 0;
  /// The delegate is not told.
  virtual void setStringValue(const std::string& text) = 0;
};

/// A panel that floats above ordinary windows on every workspace, stays there while other
/// applications are active, is in no list of windows, and has no buttons in its title bar. It
/// neither appears nor is clicked with the keyboard going to it: that goes to it when the person
/// puts it there, for the search field, or wants it so on appearing. Main thread.
class PaletteWindow {
 public:
  virtual ~PaletteWindow() = default;
  virtual bool isVisible() const = 0;
  /// Shows it above the others, without making this application active.
  virtual void orderFront() = 0;
  virtual void orderOut() = 0;
  /// Hands the keyboard back to the window that had it before; nothing where this window does not
  /// have it. Returns when that is done, at most 250 ms later.
  virtual void resignKeyWindow() = 0;

  /// The place and size that the person gave the window, in the host's own writing.
  virtual std::string stringWithSavedFrame() const = 0;
  /// Wherever that frame lies, the window appears in view. A text that is none changes nothing.
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
  /// Made hidden; asks and tells the delegate, which outlives it.
  virtual std::unique_ptr<PaletteWindow> makeWindow(PaletteWindowDelegate& delegate) = 0;
};

}  // namespace qf
