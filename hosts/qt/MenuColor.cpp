// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/MenuColor.h"

#include <algorithm>
#include <cmath>

namespace qf {
namespace {

/// WCAG 2.1, "relative luminance": 0 for black, 1 for white.
double luminance(const QColor& color) {
  const auto linear = [](double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

/// WCAG 2.1, "contrast ratio".
double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor toQColor(const Color& color) {
  const auto component = [](double value) {
    return static_cast<float>(std::clamp(value, 0.0, 1.0));
  };
  return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                          component(color.alpha));
}

/// Darker on a light background, lighter on a dark one, until it can be read.
QColor legible(QColor color, const QColor& background) {
  constexpr double readableContrast = 4.5;  // WCAG 2.1, level AA
  const float end = isLight(background) ? 0 : 1;
  const float step = isLight(background) ? -0.02F : 0.02F;
  float hue = 0, saturation = 0, lightness = 0, alpha = 0;
  color.getHslF(&hue, &saturation, &lightness, &alpha);
  while (contrast(color, background) < readableContrast && lightness != end) {
    lightness = std::clamp(lightness + step, 0.0F, 1.0F);
    color = QColor::fromHslF(hue, saturation, lightness, alpha);
  }
  return color;
}

}  // namespace

bool isLight(const QColor& background) {
  return contrast(background, Qt::black) > contrast(background, Qt::white);
}

QColor readableColor(const Color& color, const QColor& background) {
  return isLight(background) ? toQColor(color) : legibleColor(color, background);
}

QColor legibleColor(const Color& color, const QColor& background) {
  return legible(toQColor(color), background);
}

QColor fadedText(const QColor& text, const QColor& background) {
  constexpr float share = 0.55F;
  const auto mixed = [](float one, float other) { return share * one + (1 - share) * other; };
  return legible(QColor::fromRgbF(mixed(text.redF(), background.redF()),
                                  mixed(text.greenF(), background.greenF()),
                                  mixed(text.blueF(), background.blueF())),
                 background);
}

}  // namespace qf
