// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/window/widgets/SteadyBox.h"

namespace qf {

/// A choice among many, which can be searched by typing any part of a title.
class ChoiceBox final : public SteadyBox {
  Q_OBJECT

 public:
  explicit ChoiceBox(QWidget* parent = nullptr);

  /// What a screen reader says beside the choice.
  void setPurpose(const QString& purpose);
  /// Shows the choice that stands for the value in this model; the value itself where none does.
  void showValue(QAbstractItemModel& choices, const QString& value);

 signals:
  void chosen(const QString& value);

 private:
  void chooseWhatIsTyped();
  void chooseWhatIsPutIn(const QString& text);

  QString _value;
  bool _isShowing = false;
};

}  // namespace qf
