// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QButtonGroup>
#include <QCheckBox>

#include "engine/window/models/Autostart.h"
#include "engine/window/models/MenuSettings.h"
#include "engine/window/models/StoredSwitch.h"
#include "engine/window/pages/Page.h"

class QGroupBox;

namespace qf {

struct WindowModels;

/// How the menu looks and what starts by itself.
class MenuPage final : public Page {
  Q_OBJECT

 public:
  explicit MenuPage(WindowModels& models);

  void refresh() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QGroupBox* iconBox();
  QGroupBox* styleBox();
  QGroupBox* startBox();
  QGroupBox* wholeTextBox();
  QGroupBox* paletteBox();
  QCheckBox* switchFor(const QString& text, const StoredSwitch& stored);
  void change(const MenuSettings::Edit& edit);
  void showSettings();
  void tintIcons();

  WindowModels& _models;
  Autostart _autostart;
  QButtonGroup* _icons = new QButtonGroup(this);
  QButtonGroup* _styles = new QButtonGroup(this);
  QButtonGroup* _wholeTexts = new QButtonGroup(this);
  StoredSwitch _leavesWholeTexts;
  QCheckBox* _startsAtLogin;
  std::vector<std::pair<QCheckBox*, StoredSwitch>> _switches;
};

}  // namespace qf
