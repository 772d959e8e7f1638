// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCheckBox>
#include <QStackedWidget>

#include "engine/lists/CustomLists.h"
#include "engine/window/widgets/SteadyBox.h"
#include "engine/window/widgets/TextBox.h"

namespace qf {

class PersonalLists;

/// The fields of one step: which built-in cleaner, or what is found and what it becomes.
class StepEditor final : public QStackedWidget {
  Q_OBJECT

 public:
  explicit StepEditor(const PersonalLists& lists, QWidget* parent = nullptr);

  /// Null for no step.
  void setStep(const CustomStep* step);
  /// What the fields hold.
  CustomStep step() const;

 signals:
  /// By the person.
  void edited();

 private:
  QWidget* makeCleanerFields(const PersonalLists& lists);
  QWidget* makeReplaceFields();
  void tell();

  SteadyBox* _cleaner = new SteadyBox;
  TextBox* _find = new TextBox;
  TextBox* _replace = new TextBox;
  QCheckBox* _isExpression = new QCheckBox(tr("Regular e&xpression"));
  QCheckBox* _ignoresCase = new QCheckBox(tr("&Ignore capitals"));
  bool _isBeingSet = false;
};

}  // namespace qf
