// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QWidget>

#include "engine/window/models/CleanerTrial.h"
#include "engine/window/widgets/TextBox.h"

namespace qf {

/// A sample text, and beside it what a cleaner makes of it, anew with every letter.
class TrialPane final : public QWidget {
  Q_OBJECT

 public:
  explicit TrialPane(QWidget* parent = nullptr);

  /// An empty function for one that cannot be tried, with the reason.
  void setCleaner(CleanerFunction clean, const QString& reason = {});

 private:
  void layOut();
  void run();
  void show(const QString& result, const QString& problem);

  CleanerTrial _trial;
  CleanerFunction _clean;
  QString _reason;
  TextBox* _sample = new TextBox;
  TextBox* _result = new TextBox;
  QLabel* _problem = new QLabel;
};

}  // namespace qf
