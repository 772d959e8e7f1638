// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/CleanerEditor.h"

#include <QFormLayout>
#include <QToolButton>

#include "engine/window/models/PersonalLists.h"
#include "engine/window/widgets/OneLineText.h"
#include "engine/window/widgets/ShowText.h"
#include "hosts/qt/QtText.h"

namespace qf {
namespace {

constexpr const char* firstStep = "#TRIM";

/// What the person is writing stays.
void setText(QLineEdit* field, const std::string& text) {
  if (!field->hasFocus()) showText(field, toQString(text));
}

}  // namespace

CleanerEditor::CleanerEditor(PersonalLists& lists, QWidget* parent)
    : QWidget(parent), _lists(lists) {
  _stepList->setModel(&_steps);
  layOut();
  connectFields();
}

void CleanerEditor::layOut() {
  _name->setAccessibleName(tr("Name"));
  _description->setAccessibleName(tr("Description"));
  for (QLineEdit* field : {_name, _description}) field->setValidator(new OneLineText(field));
  _fault->setWordWrap(true);
  _fault->setVisible(false);
  constexpr int stepsInView = 3;
  _stepList->setFixedHeight(stepsInView * (_stepList->fontMetrics().height() + 6));

  auto* form = new QFormLayout;
  form->addRow(tr("&Name"), _name);
  form->addRow(tr("&Description"), _description);
  form->addRow(tr("Col&our"), _color);
  auto* steps = new QHBoxLayout;
  steps->addWidget(_stepList, 1);
  steps->addLayout(makeStepButtons());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addLayout(form);
  column->addLayout(steps);
  column->addWidget(_stepEditor);
  column->addWidget(_fault);
}

QLayout* CleanerEditor::makeStepButtons() {
  auto* addCleaner = new QPushButton(tr("Add &Cleaner"));
  auto* addReplace = new QPushButton(tr("Add Find and &Replace"));
  connect(addCleaner, &QPushButton::clicked, this, [this] { addStep(firstStep); });
  connect(addReplace, &QPushButton::clicked, this, [this] { addStep(FindReplace()); });
  auto* row = new QHBoxLayout;
  for (QToolButton* button : _stepList->makeButtons()) row->addWidget(button);
  row->addStretch();
  auto* column = new QVBoxLayout;
  column->addWidget(addCleaner);
  column->addWidget(addReplace);
  column->addLayout(row);
  column->addStretch();
  return column;
}

void CleanerEditor::connectFields() {
  connect(&_lists, &PersonalLists::changed, this, &CleanerEditor::update);
  // Changed, not edited: dictation and the like put text in from outside.
  connect(_name, &QLineEdit::textChanged, this, [this](const QString& text) {
    change([&](auto& cleaner) { cleaner.name = text.trimmed().toStdString(); });
  });
  connect(_description, &QLineEdit::textChanged, this, [this](const QString& text) {
    change([&](auto& cleaner) { cleaner.description = text.trimmed().toStdString(); });
  });
  connect(_color, &ColorBox::picked, this, [this] {
    const std::string color = _color->color();
    change([&color](auto& cleaner) { cleaner.color = color; });
  });
  connect(_stepList, &ReorderableList::currentRowChanged, this,
          [this](int row) { _stepEditor->setStep(_steps.row(row)); });
  connect(_stepList, &ReorderableList::removeAsked, this,
          [this](int row) { _steps.removeRow(row); });
  connect(_stepEditor, &StepEditor::edited, this,
          [this] { _steps.replace(_stepList->currentRow(), _stepEditor->step()); });
  connect(&_steps, &StepListModel::stepsEdited, this, &CleanerEditor::storeSteps);
}

void CleanerEditor::edit(const std::string& token) {
  if (_token == token) return;
  _token = token;
  for (QLineEdit* field : {_name, _description}) field->clearFocus();
  update();
  _stepList->setCurrentRow(0);
  _stepEditor->setStep(_steps.row(0));
}

void CleanerEditor::focusName() {
  _name->setFocus();
  _name->selectAll();
}

/// As the cleaner stands in the file by now, but for steps that are not stored yet.
void CleanerEditor::update() {
  std::erase_if(_drafts, [this](const auto& draft) { return !_lists.cleaner(draft.first); });
  const CustomCleaner* cleaner = _lists.cleaner(_token);
  if (!cleaner) return;
  setText(_name, cleaner->name);
  setText(_description, cleaner->description);
  _color->setColor(cleaner->color);
  const auto draft = _drafts.find(_token);
  _steps.setRows(draft == _drafts.end() ? cleaner->steps : draft->second);
  _stepEditor->setStep(_steps.row(_stepList->currentRow()));
  showFault();
}

std::optional<CustomCleaner> CleanerEditor::cleaner() const {
  const CustomCleaner* stored = _lists.cleaner(_token);
  if (!stored || !_steps.fault().isEmpty()) return std::nullopt;
  CustomCleaner cleaner = *stored;
  cleaner.steps = _steps.rows();
  return cleaner;
}

void CleanerEditor::change(const std::function<void(CustomCleaner&)>& change) {
  const std::string token = _token;
  emit stored(_lists.changeCleaner(token, change));
}

void CleanerEditor::addStep(CustomStep step) {
  _steps.insert(_stepList->currentRow() + 1, std::move(step));
  _stepList->setCurrentRow(_stepList->currentRow() + 1);
}

void CleanerEditor::storeSteps() {
  const std::string token = _token;
  const auto steps = _steps.rows();
  _drafts[token] = steps;
  if (_steps.fault().isEmpty()) {
    const auto failure =
        _lists.changeCleaner(token, [&steps](auto& cleaner) { cleaner.steps = steps; });
    if (!failure) _drafts.erase(token);
    emit stored(failure);
  }
  _stepEditor->setStep(_steps.row(_stepList->currentRow()));
  showFault();
  emit stepsEdited();
}

void CleanerEditor::showFault() {
  const QString fault = _steps.fault();
  const QString text =
      fault.isEmpty() ? QString() : tr("Not in force yet, the stored steps count: %1").arg(fault);
  if (text == _fault->text()) return;
  _fault->setText(text);
  _fault->setVisible(!text.isEmpty());
}

}  // namespace qf
