// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/window/widgets/SteadyBox.h"

namespace qf {

/// Picks the colour in which an entry is written: the menu's own, one of some, or any other.
class ColorBox final : public SteadyBox {
  Q_OBJECT

 public:
  explicit ColorBox(QWidget* parent = nullptr);

  /// "#" and six hexadecimal digits; empty for the menu's own.
  std::string color() const;
  void setColor(const std::string& color);

 signals:
  /// By the person.
  void picked();

 private:
  void choose(int index);
  int add(const QString& name, const QString& color);

  int _shown = 0;
};

}  // namespace qf
