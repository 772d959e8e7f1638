// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QWidget>

#include "engine/window/models/CleanerTrial.h"
#include "engine/window/widgets/TextBox.h"

namespace qf {

/// A sample text, and beside it what a cleaner makes of it, anew with every letter; what is new in
/// it is marked.
class TrialPane final : public QWidget {
  Q_OBJECT

 public:
  explicit TrialPane(QWidget* parent = nullptr);

  /// An empty function for one that cannot be tried, with the reason.
  void setCleaner(CleanerFunction clean, const QString& reason = {});
  /// Shows the text until the person has written one of their own. An empty one: a text for all.
  void setSample(std::string sample);

 private:
  void layOut();
  void run();
  void show(const QString& result, const QString& problem);
  void markChanges();

  CleanerTrial _trial;
  CleanerFunction _clean;
  QString _reason;
  std::string _given;  ///< the sample that was last set
  TextBox* _sample = new TextBox;
  TextBox* _result = new TextBox;
  QLabel* _problem = new QLabel;
};

}  // namespace qf
