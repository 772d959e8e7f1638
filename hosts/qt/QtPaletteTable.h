// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "host/PaletteWindow.h"

class QHelpEvent;

namespace qf {

class AddedModifiers;

/// Draws the palette's rows, and only asks for those in view: the scroll bar counts rows, not their
/// heights, so that a list of any length opens at once. The keyboard moves a highlight of its own
/// from cleaner to cleaner; a row is selected only while it is applied.
class QtPaletteTable final : public QAbstractScrollArea, public PaletteTableView {
  Q_OBJECT

 public:
  enum class Move { up, down, pageUp, pageDown, first, last };

  /// `added` outlives the table.
  QtPaletteTable(PaletteTableSource& source, AddedModifiers& added, QWidget* parent);

  /// What a table without rows says; asked each time it is drawn.
  void setEmptyText(std::function<QString()> text) { _emptyText = std::move(text); }

  double rowHeight() const override;
  void setIntercellSpacing(Size spacing) override;
  void reloadData() override;
  std::optional<std::size_t> selectedRow() const override { return _selectedRow; }
  void deselectAll() override { _selectedRow.reset(); }

  PaletteTableSource& source() const { return _source; }
  int rowCount() const;
  /// The row's description; empty where it has none.
  QString help(int row) const;
  /// The row there, or -1.
  int rowAt(QPoint placeInViewport) const;
  /// Of its cell in the viewport; empty for a row that is not shown.
  QRect cellRect(int row) const;

  /// -1 for none.
  int highlightedRow() const { return _highlightedRow; }
  void setHighlightedRow(int row);
  void moveHighlight(Move move);
  /// Scrolls to the top, with the highlight on the first cleaner.
  void goToTop();
  /// The highlight is seen only while the window has the keyboard.
  void setHighlightShown(bool isShown);

  /// As a click does: selects the row, if it may be, and has it applied.
  void press(int row);

 signals:
  void pressed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  /// Two quick clicks are two clicks.
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct ShownRow {
    int row;
    double top;
    double height;
  };

  double rowUnit() const;
  double strideOfRow(int row) const;
  const std::vector<ShownRow>& shownRows() const;
  double scrollValueWithBottom(int row) const;
  void updateScrollRange();
  void scrollTo(int row);
  int selectableRow(int from, int step) const;
  int rowAfter(Move move) const;
  void setHoveredRow(int row);
  bool showHelp(const QHelpEvent& event);
  QString toolTip(int row) const;
  void drawRow(QPainter& painter, int row) const;
  void tellAboutHighlight();

  PaletteTableSource& _source;
  AddedModifiers& _added;
  std::function<QString()> _emptyText;
  Size _spacing;
  std::optional<std::size_t> _selectedRow;
  int _highlightedRow = -1;
  int _hoveredRow = -1;
  int _pressedRow = -1;
  bool _isHighlightShown = false;
  mutable std::optional<std::vector<ShownRow>> _shownRows;
};

}  // namespace qf
