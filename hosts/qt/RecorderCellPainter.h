// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/RecorderView.h"

class QPainter;
class QRectF;
class QWidget;

namespace qf {

/// Draws the cell as the widget's palette, font and style have it.
void paintRecorderCell(QPainter& painter, const RecorderCell& cell, const QWidget& widget);

/// The ring around what has the keyboard, inside the area.
void paintRecorderFocusRing(QPainter& painter, const QRectF& area, RecorderStyle style,
                            const QWidget& widget);

}  // namespace qf
