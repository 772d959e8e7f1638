// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/PlaceInView.h"

#include <QStringList>
#include <algorithm>

namespace qf {
namespace {

constexpr int grip = 24;         // of the top edge's height, to take the window by
constexpr int gripWidth = 64;    // and how much of its width has to be seen
constexpr int farthest = 65535;  // beyond what any desktop measures

int distance(const QRect& frame, const QRect& screen) {
  const QPoint between = frame.center() - screen.center();
  return std::max(std::abs(between.x()) - screen.width() / 2, 0) +
         std::max(std::abs(between.y()) - screen.height() / 2, 0);
}

}  // namespace

QRect placeInView(const QRect& frame, const QList<QRect>& screens) {
  const QRect top(frame.topLeft(), QSize(frame.width(), grip));
  const int wanted = std::min(gripWidth, frame.width());
  const auto shows = [&](const QRect& screen) {
    const QRect seen = top & screen;
    return seen.width() >= wanted && seen.height() == grip;
  };
  if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows)) return frame;

  const QRect& screen =
      *std::min_element(screens.begin(), screens.end(), [&](const QRect& one, const QRect& two) {
        return distance(frame, one) < distance(frame, two);
      });
  QRect placed(frame.topLeft(), frame.size().boundedTo(screen.size()));
  placed.moveRight(std::min(placed.right(), screen.right()));
  placed.moveBottom(std::min(placed.bottom(), screen.bottom()));
  placed.moveLeft(std::max(placed.left(), screen.left()));
  placed.moveTop(std::max(placed.top(), screen.top()));
  return placed;
}

QString frameString(const QRect& frame) {
  return QString("%1 %2 %3 %4")
      .arg(frame.x())
      .arg(frame.y())
      .arg(frame.width())
      .arg(frame.height());
}

std::optional<QRect> frameFromString(const QString& text) {
  const QStringList parts = text.split(' ', Qt::SkipEmptyParts);
  int numbers[4];
  for (int i = 0; i < 4; ++i) {
    bool isNumber = false;
    numbers[i] = parts.value(i).toInt(&isNumber);
    if (!isNumber || std::abs(numbers[i]) > farthest) return std::nullopt;
  }
  const QRect frame(numbers[0], numbers[1], numbers[2], numbers[3]);
  return frame.isValid() ? std::optional(frame) : std::nullopt;
}

}  // namespace qf
