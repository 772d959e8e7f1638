// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace qf {

/// WCAG 2.1, "contrast ratio".
inline double contrast(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double c) {
      return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
  };
  const auto [low, high] = std::minmax({luminance(one), luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

inline QPalette darkTheme() {
  QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  return dark;
}

}  // namespace qf
