// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <map>

#include "engine/window/models/StepListModel.h"
#include "engine/window/widgets/ColorBox.h"
#include "engine/window/widgets/ReorderableList.h"
#include "engine/window/widgets/StepEditor.h"

namespace qf {

class PersonalLists;
struct Error;

/// The fields of one of the person's own cleaners. Each edit is stored at once; steps that cannot
/// be carried out are kept here, with a word why, until they can.
class CleanerEditor final : public QWidget {
  Q_OBJECT

 public:
  /// The lists outlive the editor.
  explicit CleanerEditor(PersonalLists& lists, QWidget* parent = nullptr);

  /// A token of an own cleaner.
  void edit(const std::string& token);
  void focusName();
  /// The steps as they stand in the fields; nothing while they cannot be carried out.
  std::optional<CustomCleaner> cleaner() const;

 signals:
  void stepsEdited();
  void stored(const std::optional<qf::Error>& failure);

 private:
  void layOut();
  QLayout* makeStepButtons();
  void connectFields();
  void change(const std::function<void(CustomCleaner&)>& change);
  void update();
  void addStep(CustomStep step);
  void storeSteps();
  void showFault();

  PersonalLists& _lists;
  std::string _token;
  /// Steps that are not stored yet, by cleaner.
  std::map<std::string, std::vector<CustomStep>> _drafts;
  StepListModel _steps{_lists};
  QLineEdit* _name = new QLineEdit;
  QLineEdit* _description = new QLineEdit;
  ColorBox* _color = new ColorBox;
  ReorderableList* _stepList = new ReorderableList(tr("Steps"));
  StepEditor* _stepEditor = new StepEditor(_lists);
  QLabel* _fault = new QLabel;
};

}  // namespace qf
