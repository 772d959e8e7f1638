// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/TemplateIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QSvgRenderer>
#include <algorithm>
#include <optional>
#include <utility>

#include "hosts/qt/MenuColor.h"

namespace qf {
namespace {

const QColor darkShape(0x2e, 0x34, 0x36);
const QColor lightShape(0xf2, 0xf2, 0xf2);
constexpr double disabledOpacity = 0.4;

QImage transparentImage(QSize size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

/// The largest rectangle of the size's proportions in the middle of the frame.
QRectF fitted(QSizeF size, QSizeF frame) {
  size.scale(frame, Qt::KeepAspectRatio);
  return {QPointF((frame.width() - size.width()) / 2, (frame.height() - size.height()) / 2), size};
}

QImage draw(const QString& path, QSize size) {
  QImage image = transparentImage(size);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!QFile::exists(path)) return image;
  if (path.endsWith(".svg")) {
    QSvgRenderer renderer(path);
    renderer.render(&painter, fitted(renderer.defaultSize(), size));
  } else if (const QImage picture(path); !picture.isNull()) {
    painter.drawImage(fitted(picture.size(), size), picture);
  }
  return image;
}

QImage tinted(QImage shape, const QColor& color) {
  QPainter painter(&shape);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(shape.rect(), color);
  return shape;
}

/// The light shape with a dark rim, readable on anything.
QImage rimmed(const QImage& shape) {
  const QImage rim = tinted(shape, darkShape);
  const double width = shape.width() / 22.0;
  QImage image = transparentImage(shape.size());
  QPainter painter(&image);
  for (const double x : {-width, 0.0, width}) {
    for (const double y : {-width, 0.0, width}) painter.drawImage(QPointF(x, y), rim);
  }
  painter.drawImage(0, 0, tinted(shape, lightShape));
  return image;
}

QImage asTemplate(const QImage& shape, IconTint tint) {
  if (tint.state == IconTint::State::highlighted) {
    return tinted(shape, QGuiApplication::palette().color(QPalette::Highlight));
  }
  switch (tint.panel) {
    case IconTint::Panel::light:
      return tinted(shape, darkShape);
    case IconTint::Panel::dark:
      return tinted(shape, lightShape);
    case IconTint::Panel::unknown:
      break;
  }
  return rimmed(shape);
}

std::vector<QPoint> pointsSpreadOver(QSize size) {
  constexpr int perSide = 8;
  std::vector<QPoint> points;
  for (int row = 0; row < perSide; ++row) {
    for (int column = 0; column < perSide; ++column) {
      points.emplace_back(size.width() * column / perSide, size.height() * row / perSide);
    }
  }
  return points;
}

/// What most of those points of the place show on the screen.
IconTint::Panel groundAt(const QRect& place, const std::vector<QPoint>& points) {
  QScreen* screen = place.isEmpty() ? nullptr : QGuiApplication::screenAt(place.center());
  if (screen == nullptr) return IconTint::Panel::unknown;
  const QRect onScreen = place.translated(-screen->geometry().topLeft());
  const QImage seen =
      screen->grabWindow(0, onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height())
          .toImage();
  if (seen.isNull()) return IconTint::Panel::unknown;
  const auto light = std::count_if(points.begin(), points.end(), [&](QPoint point) {
    return isLight(seen.pixelColor(point * seen.devicePixelRatio()));
  });
  return 2 * light >= static_cast<std::ptrdiff_t>(points.size()) ? IconTint::Panel::light
                                                                 : IconTint::Panel::dark;
}

class ImageIconEngine final : public QIconEngine {
 public:
  ImageIconEngine(Image image, IconTint tint, std::function<void()> painted)
      : _image(std::move(image)), _tint(tint), _painted(std::move(painted)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    const double scale = painter->device()->devicePixelRatioF();
    painter->drawImage(rect, rendered((QSizeF(rect.size()) * scale).toSize()));
    if (_painted && painter->device()->devType() == QInternal::Widget) _painted();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
    return QPixmap::fromImage(rendered(size));
  }

  QIconEngine* clone() const override { return new ImageIconEngine(*this); }

 private:
  QImage rendered(QSize size) const {
    const QImage drawn = draw(QString::fromStdString(_image.path.string()), size);
    const QImage image = _image.isTemplate ? asTemplate(drawn, _tint) : drawn;
    if (_tint.state != IconTint::State::disabled) return image;
    QImage faint = transparentImage(size);
    QPainter painter(&faint);
    painter.setOpacity(disabledOpacity);
    painter.drawImage(0, 0, image);
    return faint;
  }

  Image _image;
  IconTint _tint;
  std::function<void()> _painted;
};

}  // namespace

IconTint::Panel panelAt(const QRect& geometry) {
  const QRect pixels({}, geometry.size());
  return groundAt(geometry,
                  {pixels.topLeft(), pixels.topRight(), pixels.bottomLeft(), pixels.bottomRight()});
}

IconTint::Panel panelOf(const std::vector<QRect>& panels) {
  std::optional<IconTint::Panel> common;
  for (const QRect& panel : panels) {
    const IconTint::Panel ground = groundAt(panel, pointsSpreadOver(panel.size()));
    if (common.value_or(ground) != ground) return IconTint::Panel::unknown;
    common = ground;
  }
  return common.value_or(IconTint::Panel::unknown);
}

QIcon iconForImage(const Image& image, IconTint tint, std::function<void()> painted) {
  return QIcon(new ImageIconEngine(image, tint, std::move(painted)));
}

QIcon emptyIcon() {
  constexpr int anySize = 22;
  return QIcon(QPixmap::fromImage(transparentImage({anySize, anySize})));
}

}  // namespace qf
