// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/ShortcutsPage.h"

#include <QLabel>
#include <QScrollArea>
#include <set>

#include "engine/window/models/WindowModels.h"
#include "engine/window/widgets/ShortcutRow.h"
#include "hosts/qt/AccessibleRecorder.h"
#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"

namespace qf {

ShortcutsPage::ShortcutsPage(WindowModels& models)
    : _models(models),
      _host(models.host.bus, models.host.bundle),
      _choices(models.host),
      _model(models.menuSettings),
      _agent(models.host) {
  showRecordersToAccessibility();
  layOut();
  connect(&_model, &ShortcutsModel::changed, this, &ShortcutsPage::showItems);
  connect(&_choices, &ActionChoices::changed, this, &ShortcutsPage::showItems);
  connect(&_agent, &AgentShortcuts::changed, this, &ShortcutsPage::showStates);
  connect(_add, &QPushButton::clicked, this, &ShortcutsPage::add);
  showItems();
}

ShortcutsPage::~ShortcutsPage() {
  // They use what goes before the page's children do; those that were dropped too.
  _rows.clear();
  for (ShortcutRow* row : findChildren<ShortcutRow*>()) {
    row->disconnect(this);
    delete row;
  }
}

void ShortcutsPage::layOut() {
  auto* column = new QVBoxLayout(this);
  auto* about =
      new QLabel(tr("These keys work in every application. Click a field, or press Space "
                    "in it, then the keys."));
  about->setWordWrap(true);
  column->addWidget(about);
  const Availability keyboard = _host.layout.availability();
  if (!keyboard.isAvailable) {
    auto* reason =
        new QLabel(tr("No keys can be recorded: %1").arg(reasonText(toQString(keyboard.reason))));
    reason->setWordWrap(true);
    column->addWidget(reason);
  }
  column->addLayout(_rowsLayout);
  column->addWidget(_add, 0, Qt::AlignLeading);
  column->addStretch();
}

void ShortcutsPage::refresh() { _models.menuSettings.read(); }

void ShortcutsPage::showItems() {
  const auto items = _model.items();
  std::set<std::string> present;
  for (const QFKShortcutActionItem& item : items) present.insert(*item.uuid);
  const auto known = _rows;
  for (const auto& [key, row] : known) {
    if (!present.contains(key)) dropRow(key);
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::string& key = *items[i].uuid;
    if (!_rows.contains(key)) _rows.emplace(key, makeRow(items[i]));
    _rows.at(key)->showItem(items[i], i == 1, i + 1 == items.size());
  }
  placeRows(items);
  showStates();
  _agent.ask();
}

ShortcutRow* ShortcutsPage::makeRow(const QFKShortcutActionItem& item) {
  auto* row = new ShortcutRow(_host, _choices, ShortcutsModel::isPalette(item));
  const std::string key = *item.uuid;
  connect(row, &ShortcutRow::recorded, this,
          [this, key](const auto& shortcut) { report(_model.record(key, shortcut)); });
  connect(row, &ShortcutRow::actionChosen, this,
          [this, key](std::int64_t type, const std::string& typeValue) {
            report(_model.setAction(key, type, typeValue));
          });
  connect(row, &ShortcutRow::moveAsked, this,
          [this, key](int places) { report(_model.move(key, places)); });
  connect(row, &ShortcutRow::removeAsked, this, [this, key] { remove(key); });
  return row;
}

/// Later, since the row may be what asked for it.
void ShortcutsPage::dropRow(const std::string& key) {
  ShortcutRow* row = _rows.extract(key).mapped();
  row->hide();
  row->disconnect(this);
  // A recorder that goes ends the monitoring of whichever records.
  connect(row, &QObject::destroyed, this, &ShortcutsPage::stopRecording);
  row->deleteLater();
}

void ShortcutsPage::stopRecording() {
  for (const auto& [key, row] : _rows) row->stopRecording();
}

void ShortcutsPage::placeRows(const std::vector<QFKShortcutActionItem>& items) {
  QList<QWidget*> chain;
  for (std::size_t i = 0; i < items.size(); ++i) {
    ShortcutRow* row = _rows.at(*items[i].uuid);
    _rowsLayout->removeWidget(row);
    _rowsLayout->insertWidget(static_cast<int>(i), row);
    chain << row->focusChain();
  }
  chain << _add;
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void ShortcutsPage::showStates() {
  for (const auto& [key, row] : _rows) row->setState(_agent.stateOf(key));
}

void ShortcutsPage::add() {
  std::string key;
  report(_model.add(key));
  const auto added = _rows.find(key);
  if (added == _rows.end()) return;
  added->second->focusRecorder();
  for (QWidget* widget = parentWidget(); widget; widget = widget->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(widget)) {
      layout()->activate();
      area->ensureWidgetVisible(_add);
    }
  }
}

void ShortcutsPage::remove(const std::string& key) {
  const auto items = _model.items();
  std::string next;
  for (std::size_t i = 1; i + 1 < items.size(); ++i) {
    if (*items[i].uuid == key) next = *items[i + 1].uuid;
  }
  report(_model.remove(key));
  // The keyboard goes on to what takes the place.
  if (const auto row = _rows.find(next); row != _rows.end()) {
    row->second->focusRemoval();
  } else {
    _add->setFocus();
  }
}

}  // namespace qf
