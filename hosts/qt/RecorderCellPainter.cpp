// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/RecorderCellPainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

#include "hosts/qt/KeyEquivalent.h"

namespace qf {
namespace {

constexpr double texturedRadius = 3;
constexpr double roundedRadius = 5;
constexpr double ringWidth = 2;

QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

double radiusOf(RecorderStyle style, const QRectF& frame) {
  if (style == RecorderStyle::roundRect) return frame.height() / 2;
  return style == RecorderStyle::rounded ? roundedRadius : texturedRadius;
}

/// A cell that is shifted down keeps its lower border.
QRectF frameIn(const QWidget& widget, const RecorderCell& cell) {
  const QRectF frame(cell.frame.origin.x, cell.frame.origin.y, cell.frame.size.width,
                     cell.frame.size.height);
  return frame.intersected(widget.rect());
}

QPalette::ColorGroup groupOf(const RecorderCell& cell, const QWidget& widget) {
  if (!cell.isEnabled) return QPalette::Disabled;
  return widget.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

void paintNativeBezel(QPainter& painter, const RecorderCell& cell, const QRectF& frame,
                      const QWidget& widget) {
  QStyleOptionButton option;
  option.initFrom(&widget);
  option.rect = frame.toAlignedRect();
  option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
  option.state.setFlag(QStyle::State_Enabled, cell.isEnabled);
  option.state.setFlag(QStyle::State_On, cell.isOn);
  option.state.setFlag(QStyle::State_Raised, !cell.isOn);
  widget.style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &widget);
}

void paintBezel(QPainter& painter, const RecorderCell& cell, const QRectF& frame,
                const QWidget& widget) {
  const auto group = groupOf(cell, widget);
  const QPalette& palette = widget.palette();
  const QColor button = palette.color(group, QPalette::Button);
  QBrush ground = cell.isOn ? palette.color(group, QPalette::Highlight) : button;
  if (cell.style == RecorderStyle::texturedRounded && !cell.isOn) {
    QLinearGradient shine(frame.topLeft(), frame.bottomLeft());
    shine.setColorAt(0, button.lighter(112));
    shine.setColorAt(1, button);
    ground = shine;
  }
  painter.setBrush(ground);
  painter.setPen(mixed(button, palette.color(group, QPalette::ButtonText), 0.45));
  const QRectF border = frame.adjusted(0.5, 0.5, -0.5, -0.5);
  const double radius = radiusOf(cell.style, border);
  painter.drawRoundedRect(border, radius, radius);
}

void paintTitle(QPainter& painter, const RecorderCell& cell, const QRectF& frame,
                const QWidget& widget) {
  const bool isFlat = cell.style == RecorderStyle::flat;
  const bool isOnHighlight = cell.isOn && !isFlat && cell.style != RecorderStyle::rounded;
  const auto role = isOnHighlight ? QPalette::HighlightedText
                    : isFlat      ? QPalette::WindowText
                                  : QPalette::ButtonText;
  QFont font = widget.font();
  font.setPointSizeF(cell.fontSize);
  font.setUnderline(isFlat && cell.isOn);
  painter.setFont(font);
  painter.setPen(widget.palette().color(groupOf(cell, widget), role));
  const double margin = isFlat ? 1 : 6;
  const QRectF room = frame.adjusted(margin, 0, -margin, 0);
  const bool isRight = cell.alignment == RecorderCell::Alignment::right;
  const QString title =
      painter.fontMetrics().elidedText(withKeysAsWritten(QString::fromStdString(cell.title)),
                                       Qt::ElideRight, static_cast<int>(room.width()));
  // The right edge is the right one in every language, and keys run as their letters do.
  painter.setLayoutDirection(Qt::LayoutDirectionAuto);
  const int alignment = isRight ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignHCenter;
  painter.drawText(room, Qt::AlignVCenter | alignment, title);
}

}  // namespace

void paintRecorderCell(QPainter& painter, const RecorderCell& cell, const QWidget& widget) {
  const QRectF frame = frameIn(widget, cell);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (cell.style == RecorderStyle::rounded) {
    paintNativeBezel(painter, cell, frame, widget);
  } else if (cell.style != RecorderStyle::flat) {
    paintBezel(painter, cell, frame, widget);
  }
  paintTitle(painter, cell, frame, widget);
  painter.restore();
}

void paintRecorderFocusRing(QPainter& painter, const QRectF& area, RecorderStyle style,
                            const QWidget& widget) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(widget.palette().color(QPalette::Highlight), ringWidth));
  const double half = ringWidth / 2;
  const QRectF ring = area.adjusted(half, half, -half, -half);
  const double radius = radiusOf(style, ring);
  painter.drawRoundedRect(ring, radius, radius);
  painter.restore();
}

}  // namespace qf
