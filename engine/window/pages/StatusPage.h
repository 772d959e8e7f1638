// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "engine/window/models/AgentStatus.h"
#include "engine/window/pages/Page.h"

namespace qf {

struct WindowModels;

/// Which services of the agent and of the engine are there, and what to do about those that are
/// not.
class StatusPage final : public Page {
  Q_OBJECT

 public:
  explicit StatusPage(WindowModels& models);

  void refresh() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void layOut();
  void showAgent();
  void showEngine();

  WindowModels& _models;
  AgentStatus _agent;
  QLabel* _agentState = new QLabel;
  QPushButton* _startAgent = new QPushButton(tr("&Start the Menu"));
  QListWidget* _agentServices = new QListWidget;
  QListWidget* _engineServices = new QListWidget;
  QTimer _timer;
};

}  // namespace qf
