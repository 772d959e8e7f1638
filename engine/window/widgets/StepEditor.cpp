// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/StepEditor.h"

#include <QFormLayout>
#include <QLabel>

#include "engine/window/models/PersonalLists.h"

namespace qf {
namespace {

enum Fields { none, cleanerFields, replaceFields };

}  // namespace

StepEditor::StepEditor(const PersonalLists& lists, QWidget* parent) : QStackedWidget(parent) {
  addWidget(new QWidget);
  addWidget(makeCleanerFields(lists));
  addWidget(makeReplaceFields());
}

QWidget* StepEditor::makeCleanerFields(const PersonalLists& lists) {
  for (const std::string& token : lists.builtInTokens()) {
    if (!lists.builtIn().knows(token)) continue;
    _cleaner->addItem(lists.nameOf(token), QByteArray::fromStdString(token));
  }
  _cleaner->setAccessibleName(tr("Cleaner of this step"));
  _cleaner->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(_cleaner, &QComboBox::activated, this, &StepEditor::tell);
  auto* fields = new QWidget;
  auto* form = new QFormLayout(fields);
  form->setContentsMargins({});
  form->addRow(tr("C&leaner"), _cleaner);
  return fields;
}

QWidget* StepEditor::makeReplaceFields() {
  for (TextBox* field : {_find, _replace}) {
    field->setTabChangesFocus(true);
    constexpr int lines = 2;
    field->setFixedHeight(lines * field->fontMetrics().lineSpacing() + 2 * field->frameWidth() +
                          static_cast<int>(2 * field->document()->documentMargin()));
    connect(field, &QPlainTextEdit::textChanged, this, &StepEditor::tell);
  }
  _find->setAccessibleName(tr("Find"));
  _replace->setAccessibleName(tr("Replace by"));
  for (QCheckBox* box : {_isExpression, _ignoresCase}) {
    connect(box, &QCheckBox::toggled, this, &StepEditor::tell);
  }
  auto* fields = new QWidget;
  auto* form = new QFormLayout(fields);
  form->setContentsMargins({});
  form->addRow(tr("&Find"), _find);
  form->addRow(tr("Replace &by"), _replace);
  auto* options = new QHBoxLayout;
  options->addWidget(_isExpression);
  options->addWidget(_ignoresCase);
  options->addStretch();
  form->addRow(options);
  return fields;
}

void StepEditor::tell() {
  if (!_isBeingSet) emit edited();
}

void StepEditor::setStep(const CustomStep* step) {
  _isBeingSet = true;
  if (!step) {
    setCurrentIndex(none);
  } else if (const auto* token = std::get_if<std::string>(step)) {
    _cleaner->setCurrentIndex(_cleaner->findData(QByteArray::fromStdString(*token)));
    setCurrentIndex(cleanerFields);
  } else {
    const auto& replacement = std::get<FindReplace>(*step);
    _find->setText(replacement.find);
    _replace->setText(replacement.replace);
    _isExpression->setChecked(replacement.isRegularExpression);
    _ignoresCase->setChecked(replacement.ignoresCase);
    setCurrentIndex(replaceFields);
  }
  _isBeingSet = false;
}

CustomStep StepEditor::step() const {
  if (currentIndex() == cleanerFields) return _cleaner->currentData().toByteArray().toStdString();
  return FindReplace{_find->text(), _replace->text(), _isExpression->isChecked(),
                     _ignoresCase->isChecked()};
}

}  // namespace qf
