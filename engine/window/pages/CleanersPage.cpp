// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/CleanersPage.h"

#include <QHBoxLayout>

#include "engine/lists/CustomListsReader.h"
#include "engine/window/models/ListFaults.h"
#include "engine/window/models/WindowModels.h"
#include "engine/window/widgets/Question.h"

namespace qf {

CleanersPage::CleanersPage(WindowModels& models)
    : _host(models.host),
      _lists(models.lists),
      _finder(new CleanerFinder(_lists)),
      _editor(new CleanerEditor(_lists)) {
  layOut();
  connect(_finder, &CleanerFinder::currentChanged, this, &CleanersPage::showCurrent);
  connect(&_lists, &PersonalLists::changed, this, &CleanersPage::showCurrent);
  connect(_editor, &CleanerEditor::stepsEdited, this, &CleanersPage::tryCurrent);
  connect(_editor, &CleanerEditor::stored, this, &CleanersPage::report);
  connect(_cleanClipboard, &QPushButton::clicked, this, &CleanersPage::cleanClipboard);
  showCurrent();
}

void CleanersPage::layOut() {
  _details->addWidget(makeDescription());
  _details->addWidget(_editor);
  auto* right = new QVBoxLayout;
  right->addWidget(_details);
  right->addWidget(_trial, 1);
  auto* clipboardRow = new QHBoxLayout;
  clipboardRow->addWidget(_cleanClipboard);
  clipboardRow->addWidget(_clipboardState, 1);
  right->addLayout(clipboardRow);
  auto* row = new QHBoxLayout;
  row->addWidget(makeListSide(), 2);
  row->addLayout(right, 3);
  auto* column = new QVBoxLayout(this);
  column->addWidget(new ListFaults(_lists));
  column->addLayout(row, 1);
}

QWidget* CleanersPage::makeListSide() {
  auto* addButton = new QPushButton(tr("Ne&w"));
  _copy->setToolTip(tr("Makes a cleaner of your own that begins as this one"));
  connect(addButton, &QPushButton::clicked, this, [this] {
    add({tr("New Cleaner").toStdString(), "", "", "", {"#TRIM"}});
  });
  connect(_copy, &QPushButton::clicked, this, &CleanersPage::copyCurrent);
  connect(_remove, &QPushButton::clicked, this, &CleanersPage::removeCurrent);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {addButton, _copy, _remove}) {
    constexpr int margin = 16;  // less than the style's, so that the page fits a small screen
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + margin);
    buttons->addWidget(button);
  }
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins({});
  column->addWidget(_finder, 1);
  column->addLayout(buttons);
  return side;
}

QWidget* CleanersPage::makeDescription() {
  QFont heading = _name->font();
  heading.setBold(true);
  _name->setFont(heading);
  for (QLabel* label : {_name, _description}) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
  }
  auto* description = new QWidget;
  auto* column = new QVBoxLayout(description);
  column->setContentsMargins({});
  column->addWidget(_name);
  column->addWidget(_description);
  return description;
}

void CleanersPage::refresh() { _lists.read(); }

void CleanersPage::showCurrent() {
  const std::string token = _finder->currentToken();
  const bool isOwn = _lists.cleaner(token) != nullptr;
  _clipboardState->clear();
  _copy->setEnabled(isOwn || _lists.builtIn().knows(token));
  _remove->setEnabled(isOwn);
  _name->setText(_lists.nameOf(token));
  _description->setText(_lists.descriptionOf(token));
  if (isOwn) _editor->edit(token);
  _details->setCurrentIndex(isOwn ? 1 : 0);
  // Only what is shown takes room.
  for (int i = 0; i < _details->count(); ++i) {
    const bool isShown = i == _details->currentIndex();
    _details->widget(i)->setSizePolicy(QSizePolicy::Preferred,
                                       isShown ? QSizePolicy::Preferred : QSizePolicy::Ignored);
  }
  tryCurrent();
}

void CleanersPage::tryCurrent() {
  const std::string token = _finder->currentToken();
  const auto& builtIn = _lists.builtIn().builtInCleaners();
  if (const auto found = builtIn.find(token); found != builtIn.end()) {
    _trial->setSample(_lists.sampleOf(token));
    return _trial->setCleaner(found->second);
  }
  const auto own = _editor->cleaner();
  if (_lists.cleaner(token) && own) {
    const auto cleaners = makeCustomCleaners({.cleaners = {*own}}, builtIn);
    return _trial->setCleaner(cleaners.begin()->second);
  }
  _trial->setCleaner({}, _lists.cleaner(token) ? tr("These steps cannot be carried out yet.")
                                               : tr("This one works on the clipboard alone."));
}

void CleanersPage::add(const CustomCleaner& cleaner) {
  const auto token = _lists.addCleaner(cleaner);
  if (!token) return report(token.error());
  report(std::nullopt);
  _finder->select(*token);
  _editor->focusName();
}

void CleanersPage::copyCurrent() {
  const std::string token = _finder->currentToken();
  if (const CustomCleaner* own = _lists.cleaner(token)) return add(*own);
  add({_lists.nameOf(token).toStdString(),
       "",
       _lists.descriptionOf(token).toStdString(),
       "",
       {token}});
}

void CleanersPage::removeCurrent() {
  const std::string token = _finder->currentToken();
  const QString question = tr("Remove the cleaner “%1”?").arg(_lists.nameOf(token));
  if (isConfirmed(this, tr("Remove Cleaner"), question, tr("Remove"))) {
    report(_lists.removeCleaner(token));
  }
}

void CleanersPage::cleanClipboard() {
  const auto error = _host.cleanClipboard(_finder->currentToken());
  _clipboardState->setText(error ? QString() : tr("The clipboard is clean."));
  report(error);
}

}  // namespace qf
