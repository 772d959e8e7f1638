// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/StatusPage.h"

#include <QGroupBox>
#include <QStyle>
#include <QVBoxLayout>

#include "engine/window/models/WindowModels.h"
#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"
#include "hosts/qt/ServiceNames.h"

namespace qf {
namespace {

constexpr int askAgainInMs = 2000;

/// What is missing comes first.
void showStates(QListWidget* list, const ServiceStates& states) {
  QList<std::pair<bool, QString>> rows;
  for (auto state = states.begin(); state != states.end(); ++state) {
    const QString name = serviceName(state.key());
    rows.emplace_back(state->isAvailable,
                      state->isAvailable ? StatusPage::tr("%1: works").arg(name)
                                         : QString("%1: %2").arg(name, reasonText(state->reason)));
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  const int current = list->currentRow();
  while (list->count() > rows.size()) delete list->takeItem(list->count() - 1);
  while (list->count() < rows.size()) list->addItem(new QListWidgetItem);
  for (int i = 0; i < list->count(); ++i) {
    const auto& [isAvailable, text] = rows[i];
    if (list->item(i)->text() == text) continue;
    list->item(i)->setText(text);
    list->item(i)->setIcon(list->style()->standardIcon(isAvailable ? QStyle::SP_DialogApplyButton
                                                                   : QStyle::SP_MessageBoxWarning));
  }
  list->setCurrentRow(std::max(0, std::min(current, list->count() - 1)));
}

}  // namespace

StatusPage::StatusPage(WindowModels& models) : _models(models), _agent(models.host) {
  layOut();
  connect(&_agent, &AgentStatus::changed, this, &StatusPage::showAgent);
  connect(_startAgent, &QPushButton::clicked, this, [this] { report(_agent.startAgent()); });
  connect(&_timer, &QTimer::timeout, this, &StatusPage::refresh);
  _timer.setInterval(askAgainInMs);
}

void StatusPage::layOut() {
  _agentState->setWordWrap(true);
  _agentServices->setAccessibleName(tr("Services of the menu"));
  _engineServices->setAccessibleName(tr("Services of the engine"));
  for (QListWidget* list : {_agentServices, _engineServices}) {
    list->setWordWrap(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  auto* agentBox = new QGroupBox(tr("Menu in the tray"));
  auto* agentColumn = new QVBoxLayout(agentBox);
  auto* row = new QHBoxLayout;
  row->addWidget(_agentState, 1);
  row->addWidget(_startAgent);
  agentColumn->addLayout(row);
  agentColumn->addWidget(_agentServices, 1);
  agentColumn->addStretch();
  auto* engineBox = new QGroupBox(tr("Engine"));
  (new QVBoxLayout(engineBox))->addWidget(_engineServices);
  auto* column = new QVBoxLayout(this);
  column->addWidget(agentBox, 3);
  column->addWidget(engineBox, 2);
}

void StatusPage::refresh() {
  _agent.ask();
  showEngine();
}

void StatusPage::showEvent(QShowEvent* event) {
  Page::showEvent(event);
  _timer.start();
}

void StatusPage::hideEvent(QHideEvent* event) {
  Page::hideEvent(event);
  _timer.stop();
}

void StatusPage::showAgent() {
  using State = AgentStatus::State;
  const State state = _agent.state();
  const QString text = state == State::running  ? tr("The menu runs.")
                       : state == State::absent ? tr("The menu does not run.")
                                                : tr("The menu runs, but does not answer.");
  _agentState->setText(text);
  _startAgent->setVisible(state == State::absent);
  _agentServices->setVisible(state == State::running);
  showStates(_agentServices, _agent.services());
}

void StatusPage::showEngine() {
  ServiceStates states;
  for (const auto& [name, availability] : _models.host.engineStates()) {
    states.insert(toQString(name), {availability.isAvailable, toQString(availability.reason)});
  }
  const QString faults = _models.lists.faults();
  states.insert("CustomFile", {faults.isEmpty(), faults});
  showStates(_engineServices, states);
}

}  // namespace qf
