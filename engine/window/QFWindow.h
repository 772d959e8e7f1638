// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QListWidget>
#include <QStackedWidget>
#include <QWidget>
#include <vector>

#include "engine/window/models/WindowModels.h"
#include "engine/window/pages/Pages.h"
#include "engine/window/widgets/ProblemBar.h"
#include "hosts/linux/desktop/ColorScheme.h"

namespace qf {

/// The engine's window: a list of pages, and the one that is picked. Whatever is changed in it is
/// in force at once.
class QFWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit QFWindow(const WindowHost& host);
  ~QFWindow() override;

  void showPreferences() { _pageList->setCurrentRow(0); }
  void comeToFront();

 signals:
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void addPages();
  void layOut();
  void addKeys();
  void showPage(int row);

  ColorScheme _colorScheme;
  WindowModels _models;
  std::vector<PageEntry> _pages;
  QListWidget* _pageList = new QListWidget;
  QStackedWidget* _pageStack = new QStackedWidget;
  ProblemBar* _problemBar = new ProblemBar;
};

}  // namespace qf
