// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/ColorBox.h"

#include <QColorDialog>
#include <QPainter>

#include "hosts/qt/QtText.h"

namespace qf {
namespace {

const QString otherColor = "other";

QIcon swatch(const QColor& color) {
  constexpr int side = 16;
  QPixmap picture(side, side);
  picture.fill(color);
  return picture;
}

}  // namespace

ColorBox::ColorBox(QWidget* parent) : SteadyBox(parent) {
  setAccessibleName(tr("Colour"));
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  addItem(tr("Menu's own"), QString());
  add(tr("Red"), "#B3261E");
  add(tr("Orange"), "#B5541C");
  add(tr("Green"), "#1E7B34");
  add(tr("Blue"), "#1F5FA8");
  add(tr("Purple"), "#7A3E9D");
  add(tr("Grey"), "#6B6B6B");
  addItem(tr("Other…"), otherColor);
  connect(this, &QComboBox::activated, this, &ColorBox::choose);
}

int ColorBox::add(const QString& name, const QString& color) {
  const int place = findData(otherColor) < 0 ? count() : findData(otherColor);
  insertItem(place, swatch(QColor(color)), name, color);
  return place;
}

std::string ColorBox::color() const { return currentData().toString().toStdString(); }

void ColorBox::setColor(const std::string& color) {
  const QString text = toQString(color);
  int index = findData(text, Qt::UserRole, Qt::MatchFixedString);  // capitals or small letters
  if (index < 0) index = add(text, text);
  _shown = index;
  setCurrentIndex(index);
}

void ColorBox::choose(int index) {
  if (itemData(index) == otherColor) {
    setCurrentIndex(_shown);
    const QColor chosen = QColorDialog::getColor(QColor(currentData().toString()), this);
    if (!chosen.isValid()) return;
    setColor(chosen.name().toUpper().toStdString());
  }
  _shown = currentIndex();
  emit picked();
}

}  // namespace qf
