// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QListWidget>
#include <QStackedWidget>
#include <QWidget>
#include <vector>

#include "engine/window/Pages.h"
#include "engine/window/ProblemBar.h"
#include "engine/window/WindowModels.h"
#include "hosts/linux/workspace/ColorScheme.h"

namespace qf {

/// The engine's window: a list of pages, and the one that is picked. Whatever is changed in it is
/// in force at once.
class QFWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit QFWindow(const WindowServices& services);
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
