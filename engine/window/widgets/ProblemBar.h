// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>

class QLabel;

namespace qf {

/// Tells above a page what could not be done, until it is dismissed. Hidden while there is nothing.
class ProblemBar final : public QFrame {
  Q_OBJECT

 public:
  explicit ProblemBar(QWidget* parent = nullptr);

  /// An empty text hides the bar. Screen readers speak a new one at once.
  void setText(const QString& text);

 private:
  QLabel* _label;
};

}  // namespace qf
