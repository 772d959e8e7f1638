// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/PaletteCellStyle.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>
#include <cmath>

#include "hosts/qt/MenuColor.h"
#include "hosts/qt/QtFont.h"

namespace qf {
namespace {

constexpr double textSize = 11.0;  // of the palette's titles, in points
constexpr int verticalMargin = 5;
constexpr int horizontalMargin = 8;
constexpr int longestText = 400;  // in characters; no window shows more of a line

/// The shade of the ground that a text has most trouble with: styles shade their buttons.
QColor hardestGround(const QPalette& palette, bool isBordered) {
  const QColor ground =
      palette.color(QPalette::Active, isBordered ? QPalette::Button : QPalette::Window);
  if (!isBordered) return ground;
  return isLight(ground) ? ground.darker(108) : ground.lighter(150);
}

QColor colorOfTitle(const PaletteCell& cell, const QPalette& palette) {
  const QPalette::ColorRole text = cell.isBordered ? QPalette::ButtonText : QPalette::WindowText;
  const std::optional<Color>& color = cell.title.foregroundColor;
  // Black stands for what the theme writes in.
  if (!color || *color == Color::black()) return palette.color(QPalette::Active, text);
  return legibleColor(*color, hardestGround(palette, cell.isBordered));
}

void drawButton(QPainter& painter, const QWidget& table, const QRect& rect,
                PaletteCellState state) {
  QStyleOptionButton option;
  option.initFrom(&table);
  option.rect = rect;
  // The panel hardly ever is the active window, and is no less to be used for that.
  option.palette.setCurrentColorGroup(QPalette::Active);
  option.state = QStyle::State_Enabled | QStyle::State_Active;
  option.state |= state.isDown ? QStyle::State_Sunken : QStyle::State_Raised;
  if (state.isHovered) option.state |= QStyle::State_MouseOver;
  table.style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &table);
}

void drawHighlight(QPainter& painter, const QWidget& table, const QRect& rect) {
  constexpr qreal width = 2;
  const QColor ground = table.palette().color(QPalette::Active, QPalette::Window);
  const QColor color = table.palette().color(QPalette::Active, QPalette::Highlight);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(
      QPen(legibleColor({color.redF(), color.greenF(), color.blueF(), 1}, ground), width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
  painter.restore();
}

QFont fontOf(const PaletteCell& cell, const QWidget& table) {
  return cell.title.font ? fontFor(*cell.title.font, table.font()) : table.font();
}

QRect roomForText(const QRect& rect) {
  return rect.adjusted(horizontalMargin, 0, -horizontalMargin, 0);
}

}  // namespace

bool paletteTextIsCut(const QRect& rect, const PaletteCell& cell, const QWidget& table) {
  const QString text = QString::fromStdString(cell.title.text);
  return text.size() > longestText ||
         QFontMetrics(fontOf(cell, table)).horizontalAdvance(text) > roomForText(rect).width();
}

double paletteRowHeight(const QFont& base) {
  const QFontMetricsF metrics(fontFor({.family = {}, .pointSize = textSize}, base));
  return std::ceil(metrics.height()) + 2 * verticalMargin;
}

void drawPaletteCell(QPainter& painter, const QWidget& table, const QRect& rect,
                     const PaletteCell& cell, PaletteCellState state) {
  if (cell.isBordered) drawButton(painter, table, rect, state);
  if (state.isHighlighted) drawHighlight(painter, table, rect);
  painter.setFont(fontOf(cell, table));
  painter.setPen(colorOfTitle(cell, table.palette()));
  const QRect room = roomForText(rect);
  const QString text = QString::fromStdString(cell.title.text).left(longestText);
  const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width());
  const auto alignment = QStyle::visualAlignment(table.layoutDirection(), Qt::AlignLeft);
  painter.drawText(room, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                   shown);
}

}  // namespace qf
