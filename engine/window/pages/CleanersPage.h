// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

#include "engine/window/pages/Page.h"
#include "engine/window/widgets/CleanerEditor.h"
#include "engine/window/widgets/CleanerFinder.h"
#include "engine/window/widgets/TrialPane.h"

namespace qf {

struct WindowHost;
struct WindowModels;

/// All cleaners: what they do, tried out on a sample, and the person's own to be made and changed.
class CleanersPage final : public Page {
  Q_OBJECT

 public:
  explicit CleanersPage(WindowModels& models);

  void refresh() override;

 private:
  void layOut();
  QWidget* makeListSide();
  QWidget* makeDescription();
  void showCurrent();
  void tryCurrent();
  void add(const CustomCleaner& cleaner);
  void copyCurrent();
  void removeCurrent();
  void cleanClipboard();

  const WindowHost& _host;
  PersonalLists& _lists;
  CleanerFinder* _finder;
  QPushButton* _copy = new QPushButton(tr("Co&py"));
  QPushButton* _remove = new QPushButton(tr("Remo&ve"));
  QLabel* _name = new QLabel;
  QLabel* _description = new QLabel;
  CleanerEditor* _editor;
  QStackedWidget* _details = new QStackedWidget;
  TrialPane* _trial = new TrialPane;
  QPushButton* _cleanClipboard = new QPushButton(tr("Clean the Clip&board"));
  QLabel* _clipboardState = new QLabel;
};

}  // namespace qf
