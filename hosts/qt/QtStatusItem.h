// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>
#include <optional>

#include "host/StatusBar.h"
#include "hosts/qt/QtMenu.h"
#include "hosts/qt/TemplateIcon.h"

namespace qf {

class QtStatusBar;

/// An icon in the tray. Either mouse button opens the menu, drawn by us: what a panel draws of a
/// menu handed to it has neither colours nor indentation.
class QtStatusItem final : public QObject, public StatusItem, private StatusItemButton {
 public:
  explicit QtStatusItem(QtStatusBar& statusBar);

  StatusItemButton& button() override { return *this; }
  void setImage(std::optional<Image> image) override;
  void setMenu(Menu* menu) override { _model = menu; }

 private:
  void setHighlighted(bool highlighted) override;
  void setEnabled(bool enabled) override;

  void showIcon();
  void openMenu();
  void updateIcon();
  void lookAtPanel();
  IconTint::Panel panel() const;

  QtStatusBar& _statusBar;
  std::optional<QSystemTrayIcon> _icon;  ///< from the first tray on
  QTimer _panelTimer;
  std::optional<Image> _image;
  IconTint _tint;
  bool _isHighlighted = false;
  bool _isEnabled = true;
  Menu* _model = nullptr;
  QPointer<QtMenu> _openMenu;
};

}  // namespace qf
