// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <optional>

namespace qf {

/// The frame itself while a person can see and grab its top edge on one of the screens, else a
/// frame of its size, or smaller where there is no room for that, on the screen nearest to it. The
/// screens are those areas of them that windows may cover; without one the frame stays.
QRect placeInView(const QRect& frame, const QList<QRect>& screens);

/// A frame in writing: x, y, width and height in device-independent pixels from the top left,
/// parted by blanks. What follows them is not looked at.
QString frameString(const QRect& frame);
std::optional<QRect> frameFromString(const QString& text);

}  // namespace qf
