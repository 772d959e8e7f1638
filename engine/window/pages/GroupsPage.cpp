// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/GroupsPage.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QToolButton>
#include <utility>

#include "engine/window/models/ListFaults.h"
#include "engine/window/models/RenamedGroup.h"
#include "engine/window/models/WindowModels.h"
#include "engine/window/widgets/OneLineText.h"
#include "engine/window/widgets/Question.h"
#include "engine/window/widgets/ShowText.h"
#include "hosts/qt/QtText.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

QVBoxLayout* columnOf(QWidget* widget) {
  auto* column = new QVBoxLayout(widget);
  column->setContentsMargins({});
  return column;
}

QHBoxLayout* rowOf(const QList<QToolButton*>& buttons) {
  auto* row = new QHBoxLayout;
  for (QToolButton* button : buttons) row->addWidget(button);
  row->addStretch();
  return row;
}

}  // namespace

GroupsPage::GroupsPage(WindowModels& models)
    : _models(models),
      _groups(models.lists),
      _entries(models.lists),
      _entrySide(makeEntrySide()),
      _finder(new CleanerFinder(models.lists)) {
  auto* row = new QHBoxLayout;
  row->addWidget(makeGroupSide(), 2);
  row->addWidget(_entrySide, 3);
  row->addWidget(makeCleanerSide(), 3);
  auto* column = new QVBoxLayout(this);
  column->addWidget(new ListFaults(models.lists));
  column->addLayout(row, 1);
  _groupList->setModel(&_groups);
  _entryList->setModel(&_entries);
  connectFields();
  _groupList->setCurrentRow(0);
  showGroup();
}

QWidget* GroupsPage::makeGroupSide() {
  auto* addGroup = new QPushButton(tr("Ne&w Group"));
  connect(addGroup, &QPushButton::clicked, this, &GroupsPage::addGroup);
  auto* title = new QLabel(tr("&Groups"));
  title->setBuddy(_groupList);
  auto* side = new QWidget;
  auto* column = columnOf(side);
  column->addWidget(title);
  column->addWidget(_groupList, 1);
  column->addLayout(rowOf(_groupList->makeButtons()));
  column->addWidget(addGroup);
  return side;
}

QWidget* GroupsPage::makeEntrySide() {
  _name->setAccessibleName(tr("Name of the group"));
  _label->setAccessibleName(tr("Text of the label"));
  for (QLineEdit* field : {_name, _label}) field->setValidator(new OneLineText(field));
  auto* addLabel = new QPushButton(tr("Add &Label"));
  auto* addSeparator = new QPushButton(tr("Add &Separator"));
  connect(addLabel, &QPushButton::clicked, this, [this] {
    addEntry(std::string(specialToken::labelPrefix) + tr("Label").toStdString());
    _label->setFocus();
    _label->selectAll();
  });
  connect(addSeparator, &QPushButton::clicked, this,
          [this] { addEntry(std::string(specialToken::spacer)); });
  auto* side = new QWidget;
  auto* column = columnOf(side);
  auto* nameForm = new QFormLayout;
  nameForm->addRow(tr("&Name"), _name);
  column->addLayout(nameForm);
  column->addWidget(_entryList, 1);
  auto* row = rowOf(_entryList->makeButtons());
  row->addWidget(addLabel);
  row->addWidget(addSeparator);
  column->addLayout(row);
  auto* entryForm = new QFormLayout;
  entryForm->addRow(tr("Label &text"), _label);
  entryForm->addRow(tr("Col&our"), _color);
  column->addLayout(entryForm);
  return side;
}

QWidget* GroupsPage::makeCleanerSide() {
  _finder->list().setDragDropMode(QAbstractItemView::DragOnly);
  const auto addCurrent = [this] {
    if (!_finder->currentToken().empty()) addEntry(_finder->currentToken());
  };
  connect(_finder, &CleanerFinder::activated, this, addCurrent);
  connect(_add, &QPushButton::clicked, this, addCurrent);
  auto* side = new QWidget;
  auto* column = columnOf(side);
  column->addWidget(_finder, 1);
  column->addWidget(_add);
  return side;
}

void GroupsPage::connectFields() {
  connect(&_groups, &GroupListModel::stored, this, &GroupsPage::report);
  connect(&_entries, &GroupEntriesModel::stored, this, &GroupsPage::report);
  connect(_groupList, &ReorderableList::currentRowChanged, this, &GroupsPage::showGroup);
  connect(_groupList, &ReorderableList::removeAsked, this, &GroupsPage::removeGroup);
  connect(_entryList, &ReorderableList::currentRowChanged, this, &GroupsPage::showEntry);
  connect(_entryList, &ReorderableList::removeAsked, this,
          [this](int row) { _entries.removeRow(row); });
  connect(&_entries, &QAbstractItemModel::dataChanged, this, &GroupsPage::showEntry);
  connect(&_groups, &QAbstractItemModel::dataChanged, this, &GroupsPage::showGroup);
  connect(_name, &QLineEdit::editingFinished, this, &GroupsPage::renameGroup);
  // What dictation and the like put in from outside is finished.
  connect(_name, &QLineEdit::textChanged, this, [this] {
    if (!_name->isModified()) renameGroup();
  });
  connect(_label, &QLineEdit::textChanged, this, [this](const QString& text) {
    changeEntry([&](auto& entry) {
      entry.token = std::string(specialToken::labelPrefix) + text.toStdString();
    });
  });
  connect(_color, &ColorBox::picked, this,
          [this] { changeEntry([this](auto& entry) { entry.color = _color->color(); }); });
}

void GroupsPage::refresh() { _models.lists.read(); }

std::string GroupsPage::currentGroup() const {
  const std::string* name = _groups.row(_groupList->currentRow());
  return name ? *name : "";
}

void GroupsPage::showGroup() {
  const std::string former = std::exchange(_group, currentGroup());
  _entrySide->setEnabled(!_group.empty());
  _add->setEnabled(!_group.empty());
  if (_group != former || !_name->isModified()) showText(_name, toQString(_group));
  _entries.setGroup(_group);
  const bool isRenamed = !_models.lists.group(former);
  if ((_group != former && !isRenamed) || !_entryList->currentIndex().isValid()) {
    _entryList->setCurrentRow(0);
  }
  showEntry();
}

void GroupsPage::showEntry() {
  const CustomGroup::Entry* entry = _entries.row(_entryList->currentRow());
  const bool isLabel = entry && specialToken::isLabel(entry->token);
  _label->setEnabled(isLabel);
  showText(_label, isLabel ? toQString(specialToken::labelText(entry->token)) : QString());
  _color->setEnabled(entry && entry->token != specialToken::spacer);
  _color->setColor(entry ? entry->color : "");
}

void GroupsPage::addGroup() {
  renameGroup();
  const auto name = _models.lists.addGroup(tr("New Group"));
  if (!name) return report(name.error());
  report(std::nullopt);
  _groupList->setCurrentRow(_groups.rowCount() - 1);
  _name->setFocus();
  _name->selectAll();
}

void GroupsPage::renameGroup() {
  const std::string former = _group, wanted = _name->text().trimmed().toStdString();
  _name->setModified(false);
  if (!former.empty() && former != wanted) {
    auto failure = _models.lists.renameGroup(former, wanted);
    if (!failure) failure = followRenamedGroup(_models.menuSettings, former, wanted);
    report(failure);
  }
  showGroup();
}

void GroupsPage::removeGroup() {
  const std::string name = currentGroup();
  const QString question = tr("Remove the group “%1”? Its cleaners stay.").arg(toQString(name));
  if (isConfirmed(this, tr("Remove Group"), question, tr("Remove"))) {
    report(_models.lists.removeGroup(name));
  }
}

void GroupsPage::addEntry(const std::string& token) {
  if (currentGroup().empty()) return;
  const int at = _entryList->currentRow() + 1;
  _entries.insert(at, {token, ""});
  _entryList->setCurrentRow(at);
}

void GroupsPage::changeEntry(const std::function<void(CustomGroup::Entry&)>& change) {
  const int at = _entryList->currentRow();
  if (!_entries.row(at)) return;
  CustomGroup::Entry entry = *_entries.row(at);
  change(entry);
  _entries.replace(at, entry);
}

}  // namespace qf
