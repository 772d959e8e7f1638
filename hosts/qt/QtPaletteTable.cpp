// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtPaletteTable.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "host/EventState.h"
#include "hosts/qt/AccessiblePalette.h"
#include "hosts/qt/AddedModifiers.h"
#include "hosts/qt/PaletteCellStyle.h"

namespace qf {

QtPaletteTable::QtPaletteTable(PaletteTableSource& source, AddedModifiers& added, QWidget* parent)
    : QAbstractScrollArea(parent), _source(source), _added(added) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);  // the search field has the keyboard and hands on what moves here
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(tr("Cleaners"));
  viewport()->setMouseTracking(true);
  viewport()->setAutoFillBackground(false);
}

double QtPaletteTable::rowHeight() const { return paletteRowHeight(font()); }

void QtPaletteTable::setIntercellSpacing(Size spacing) {
  _spacing = spacing;
  reloadData();
}

int QtPaletteTable::rowCount() const { return static_cast<int>(_source.numberOfRows()); }

void QtPaletteTable::reloadData() {
  _selectedRow.reset();
  _shownRows.reset();
  _hoveredRow = _pressedRow = -1;
  forgetAccessibleRows(*this);
  updateScrollRange();
  if (_highlightedRow >= rowCount()) _highlightedRow = -1;
  if (_highlightedRow >= 0 && !_source.shouldSelectRow(static_cast<std::size_t>(_highlightedRow))) {
    _highlightedRow = -1;
  }
  viewport()->update();
}

double QtPaletteTable::rowUnit() const { return rowHeight() + _spacing.height; }

double QtPaletteTable::strideOfRow(int row) const {
  return std::max(1.0, _source.heightOfRow(static_cast<std::size_t>(row)) + _spacing.height);
}

const std::vector<QtPaletteTable::ShownRow>& QtPaletteTable::shownRows() const {
  if (_shownRows) return *_shownRows;
  std::vector<ShownRow>& rows = _shownRows.emplace();
  const double position = verticalScrollBar()->value() / rowUnit();
  int row = static_cast<int>(position);
  const int count = rowCount();
  if (row >= count) return rows;
  double top = -(position - row) * strideOfRow(row);
  for (; row < count && top < viewport()->height(); ++row) {
    const double height = strideOfRow(row);
    rows.push_back({row, top, height});
    top += height;
  }
  return rows;
}

/// Where to scroll for the row to end at the lower edge.
double QtPaletteTable::scrollValueWithBottom(int row) const {
  double room = viewport()->height() + std::min(0.0, _spacing.height);
  for (; row >= 0; --row) {
    const double height = strideOfRow(row);
    if (height >= room) return (row + (height - room) / height) * rowUnit();
    room -= height;
  }
  return 0;
}

void QtPaletteTable::updateScrollRange() {
  const int last = static_cast<int>(std::ceil(scrollValueWithBottom(rowCount() - 1)));
  verticalScrollBar()->setSingleStep(static_cast<int>(rowUnit()));
  verticalScrollBar()->setPageStep(std::max(1, viewport()->height()));
  verticalScrollBar()->setRange(0, last);
}

void QtPaletteTable::scrollTo(int row) {
  const double top = row * rowUnit();
  const double bottom = scrollValueWithBottom(row);
  const int value = verticalScrollBar()->value();
  if (value > top) verticalScrollBar()->setValue(static_cast<int>(top));
  if (value < bottom) verticalScrollBar()->setValue(static_cast<int>(std::ceil(bottom)));
}

QRect QtPaletteTable::cellRect(int row) const {
  for (const ShownRow& shown : shownRows()) {
    if (shown.row != row) continue;
    // Cells that overlap sideways would leave the table, by as much as they do on either side.
    const double gap = std::max(0.0, _spacing.width);
    const QRectF cell(gap / 2, std::round(shown.top), viewport()->width() - gap,
                      shown.height - _spacing.height);
    return cell.toRect();
  }
  return {};
}

int QtPaletteTable::rowAt(QPoint place) const {
  if (!viewport()->rect().contains(place)) return -1;
  for (const ShownRow& shown : shownRows()) {
    if (place.y() >= shown.top && place.y() < shown.top + shown.height) return shown.row;
  }
  return -1;
}

void QtPaletteTable::press(int row) {
  if (row < 0 || row >= rowCount()) return;
  const auto index = static_cast<std::size_t>(row);
  if (_source.shouldSelectRow(index)) _selectedRow = index;
  emit pressed();
}

int QtPaletteTable::selectableRow(int from, int step) const {
  for (int row = from; row >= 0 && row < rowCount(); row += step) {
    if (_source.shouldSelectRow(static_cast<std::size_t>(row))) return row;
  }
  return -1;
}

int QtPaletteTable::rowAfter(Move move) const {
  const int last = rowCount() - 1;
  const int page = std::max(1, static_cast<int>(viewport()->height() / rowUnit()) - 1);
  const int here = _highlightedRow;
  const auto either = [this](int from, int step) {
    const int row = selectableRow(from, step);
    return row >= 0 ? row : selectableRow(from, -step);
  };
  switch (move) {
    case Move::up:
      return here < 0 ? selectableRow(0, 1) : selectableRow(here - 1, -1);
    case Move::down:
      return selectableRow(here + 1, 1);
    case Move::pageUp:
      return either(std::max(0, here - page), -1);
    case Move::pageDown:
      return either(std::min(last, std::max(0, here) + page), 1);
    case Move::first:
      return selectableRow(0, 1);
    case Move::last:
      return selectableRow(last, -1);
  }
  return -1;
}

void QtPaletteTable::moveHighlight(Move move) {
  if (const int row = rowAfter(move); row >= 0) setHighlightedRow(row);
}

void QtPaletteTable::setHighlightedRow(int row) {
  _highlightedRow = row;
  if (row >= 0) scrollTo(row);
  viewport()->update();
  tellAboutHighlight();
}

void QtPaletteTable::goToTop() {
  verticalScrollBar()->setValue(0);
  setHighlightedRow(selectableRow(0, 1));
}

void QtPaletteTable::setHighlightShown(bool isShown) {
  if (_isHighlightShown == isShown) return;
  _isHighlightShown = isShown;
  viewport()->update();
  tellAboutHighlight();
}

void QtPaletteTable::tellAboutHighlight() {
  if (!_isHighlightShown || _highlightedRow < 0 || !QAccessible::isActive()) return;
  QAccessibleEvent focus(this, QAccessible::Focus);
  focus.setChild(_highlightedRow);
  QAccessible::updateAccessibility(&focus);
}

void QtPaletteTable::drawRow(QPainter& painter, int row) const {
  PaletteCellState state;
  state.isHovered = row == _hoveredRow && _pressedRow < 0;
  state.isDown = row == _pressedRow && row == _hoveredRow;
  state.isHighlighted = _isHighlightShown && row == _highlightedRow;
  drawPaletteCell(painter, *this, cellRect(row), _source.cellForRow(static_cast<std::size_t>(row)),
                  state);
}

void QtPaletteTable::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  for (const ShownRow& shown : shownRows()) drawRow(painter, shown.row);
  // Cells overlap: the highlighted one lies above its neighbours.
  if (_isHighlightShown && !cellRect(_highlightedRow).isEmpty()) drawRow(painter, _highlightedRow);
  if (rowCount() == 0 && _emptyText) {
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, _emptyText());
  }
}

void QtPaletteTable::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  _shownRows.reset();
  updateScrollRange();
}

void QtPaletteTable::scrollContentsBy(int /*dx*/, int /*dy*/) {
  _shownRows.reset();
  setHoveredRow(viewport()->underMouse() ? rowAt(viewport()->mapFromGlobal(QCursor::pos())) : -1);
  viewport()->update();
}

bool QtPaletteTable::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) setHoveredRow(-1);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    _shownRows.reset();
    updateScrollRange();
  }
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  return showHelp(static_cast<QHelpEvent&>(*event));
}

bool QtPaletteTable::showHelp(const QHelpEvent& event) {
  const int row = rowAt(event.pos());
  if (const QString text = row < 0 ? QString() : toolTip(row); !text.isEmpty()) {
    QToolTip::showText(event.globalPos(), text, viewport(), cellRect(row));
  } else {
    QToolTip::hideText();
  }
  return true;
}

QString QtPaletteTable::help(int row) const {
  // With Command held the source describes what it names otherwise.
  const AddedModifiers::Scope describing(_added, modifier::command);
  const auto index = static_cast<std::size_t>(row);
  const QString text = QString::fromStdString(_source.toolTipForRow(index).value_or(""));
  return text == QString::fromStdString(_source.objectValueForRow(index)) ? QString() : text;
}

/// The name where it is cut off, and the description, as rich text, which is wrapped.
QString QtPaletteTable::toolTip(int row) const {
  const auto index = static_cast<std::size_t>(row);
  if (!_source.shouldSelectRow(index)) return {};
  const bool isCut = paletteTextIsCut(cellRect(row), _source.cellForRow(index), *this);
  QString text;
  if (isCut) {
    text += "<p><b>" + QString::fromStdString(_source.objectValueForRow(index)).toHtmlEscaped() +
            "</b></p>";
  }
  if (const QString description = help(row); !description.isEmpty()) {
    text += "<p>" + description.toHtmlEscaped() + "</p>";
  }
  return text;
}

void QtPaletteTable::setHoveredRow(int row) {
  if (_hoveredRow == row) return;
  _hoveredRow = row;
  viewport()->update();
}

void QtPaletteTable::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  _pressedRow = rowAt(event->pos());
  setHoveredRow(_pressedRow);
  viewport()->update();
}

void QtPaletteTable::mouseMoveEvent(QMouseEvent* event) { setHoveredRow(rowAt(event->pos())); }

void QtPaletteTable::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || _pressedRow < 0) return;
  const int row = std::exchange(_pressedRow, -1);
  viewport()->repaint();  // now: what follows may take a while
  if (row == rowAt(event->pos())) press(row);
}

}  // namespace qf
