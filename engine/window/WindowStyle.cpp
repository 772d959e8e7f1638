// SPDX-License-Identifier: Apache-2.0
#include "engine/window/WindowStyle.h"

#include <QPainter>
#include <QStyleOption>

#include "hosts/qt/MenuColor.h"

namespace qf {

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isRound = element == PE_IndicatorRadioButton;
  if (!isRound && element != PE_IndicatorCheckBox) return;
  if (isLight(option->palette.color(QPalette::Window))) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, isRound);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(option->palette.color(QPalette::PlaceholderText));
  const QRect outline = option->rect.adjusted(0, 0, -1, -1);
  isRound ? painter->drawEllipse(outline) : painter->drawRect(outline);
  painter->restore();
}

}  // namespace qf
