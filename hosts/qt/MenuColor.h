// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

#include "foundation/Color.h"

namespace qf {

/// Whether dark text is the readable one on it.
bool isLight(const QColor& background);

/// The colour in which to write on the background. Colours are chosen for light menus and are kept
/// as they are there; on a dark one, a colour too dark to read is made lighter in its own hue.
QColor readableColor(const Color& color, const QColor& background);

/// The same, on a light background too: made darker there until it can be read.
QColor legibleColor(const Color& color, const QColor& background);

/// Text that cannot be picked: fainter than the rest, but still to be read.
QColor fadedText(const QColor& text, const QColor& background);

}  // namespace qf
