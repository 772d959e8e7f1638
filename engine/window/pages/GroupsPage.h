// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "engine/window/models/GroupEntriesModel.h"
#include "engine/window/models/GroupListModel.h"
#include "engine/window/pages/Page.h"
#include "engine/window/widgets/CleanerFinder.h"
#include "engine/window/widgets/ColorBox.h"
#include "engine/window/widgets/ReorderableList.h"

namespace qf {

struct WindowModels;

/// The person's own groups, their order and what is in them.
class GroupsPage final : public Page {
  Q_OBJECT

 public:
  explicit GroupsPage(WindowModels& models);

  void refresh() override;

 private:
  QWidget* makeGroupSide();
  QWidget* makeEntrySide();
  QWidget* makeCleanerSide();
  void connectFields();
  std::string currentGroup() const;
  void showGroup();
  void showEntry();
  void addGroup();
  void renameGroup();
  void removeGroup();
  void addEntry(const std::string& token);
  void changeEntry(const std::function<void(CustomGroup::Entry&)>& change);

  WindowModels& _models;
  GroupListModel _groups;
  GroupEntriesModel _entries;
  std::string _group;  ///< that is shown; empty for none
  ReorderableList* _groupList = new ReorderableList(tr("Groups"));
  QLineEdit* _name = new QLineEdit;
  ReorderableList* _entryList = new ReorderableList(tr("In the group"));
  QLineEdit* _label = new QLineEdit;
  ColorBox* _color = new ColorBox;
  QWidget* _entrySide;
  CleanerFinder* _finder;
  QPushButton* _add = new QPushButton(tr("&Add to the Group"));
};

}  // namespace qf
