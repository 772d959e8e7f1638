// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/ChoiceBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <utility>

#include "engine/window/models/ActionChoices.h"

namespace qf {

ChoiceBox::ChoiceBox(QWidget* parent) : SteadyBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  connect(this, &QComboBox::activated, this, [this](int index) {
    const QString value = itemData(index, ActionChoices::valueRole).toString();
    if (value != _value) emit chosen(value);
  });
  connect(lineEdit(), &QLineEdit::editingFinished, this, &ChoiceBox::chooseWhatIsTyped);
  connect(lineEdit(), &QLineEdit::textChanged, this, &ChoiceBox::chooseWhatIsPutIn);
}

void ChoiceBox::setPurpose(const QString& purpose) {
  setAccessibleDescription(purpose);  // its name is what is chosen
  lineEdit()->setAccessibleName(purpose);
}

void ChoiceBox::showValue(QAbstractItemModel& choices, const QString& value) {
  const bool wasShowing = std::exchange(_isShowing, true);
  if (model() != &choices) {
    setModel(&choices);
    completer()->setModel(&choices);
  }
  const int index = findData(value, ActionChoices::valueRole);
  const bool isTyping = lineEdit()->hasFocus() && lineEdit()->isModified();
  if (value != _value || index != currentIndex() || !isTyping) {
    _value = value;
    setCurrentIndex(index);
    if (index < 0) setEditText(value);
  }
  _isShowing = wasShowing;
}

/// A part that fits one choice alone stands for it; anything else is taken back.
void ChoiceBox::chooseWhatIsTyped() {
  const QString typed = currentText();
  // Two of a list may have one title.
  int index =
      typed == itemText(currentIndex()) ? currentIndex() : findText(typed, Qt::MatchFixedString);
  if (index < 0 && !typed.isEmpty()) {
    const auto fitting =
        model()->match(model()->index(0, 0), Qt::DisplayRole, typed, 2, Qt::MatchContains);
    if (fitting.size() == 1) index = fitting.first().row();
  }
  lineEdit()->setModified(false);
  const QString value = index < 0 ? _value : itemData(index, ActionChoices::valueRole).toString();
  const bool isNew = value != _value;
  showValue(*model(), value);
  if (isNew) emit chosen(value);
}

/// By dictation and the like: neither by the person's keys nor by a change of the choices.
void ChoiceBox::chooseWhatIsPutIn(const QString& text) {
  const bool isSearching = lineEdit()->isModified() || completer()->popup()->isVisible();
  if (_isShowing || isSearching || text == itemText(currentIndex())) return;
  chooseWhatIsTyped();
}

}  // namespace qf
