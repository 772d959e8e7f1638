// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPushButton>
#include <QVBoxLayout>
#include <map>
#include <string>
#include <vector>

#include "engine/window/RecorderHost.h"
#include "engine/window/models/ActionChoices.h"
#include "engine/window/models/AgentShortcuts.h"
#include "engine/window/models/ShortcutsModel.h"
#include "engine/window/pages/Page.h"

namespace qf {

struct WindowModels;
class ShortcutRow;

/// The key combinations that work in every application: each is recorded, and told what to do.
class ShortcutsPage final : public Page {
  Q_OBJECT

 public:
  explicit ShortcutsPage(WindowModels& models);
  ~ShortcutsPage() override;

  void refresh() override;

 private:
  void layOut();
  void showItems();
  void showStates();
  ShortcutRow* makeRow(const QFKShortcutActionItem& item);
  void dropRow(const std::string& key);
  void placeRows(const std::vector<QFKShortcutActionItem>& items);
  void add();
  void remove(const std::string& key);
  void stopRecording();

  WindowModels& _models;
  RecorderHost _host;
  ActionChoices _choices;
  ShortcutsModel _model;
  AgentShortcuts _agent;
  QVBoxLayout* _rowsLayout = new QVBoxLayout;
  QPushButton* _add = new QPushButton(tr("&Add a shortcut"));
  std::map<std::string, ShortcutRow*> _rows;
};

}  // namespace qf
