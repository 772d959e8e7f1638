// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QPushButton>
#include <memory>

#include "host/PaletteWindow.h"
#include "hosts/qt/QtMenu.h"

namespace qf {

/// A button that shows what was chosen and opens the menu to choose from. A long title is cut, so
/// that it never widens the window.
class QtPopUpButton final : public QPushButton, public PalettePopUpButton {
  Q_OBJECT

 public:
  explicit QtPopUpButton(QWidget* parent);

  bool pullsDown() const override { return false; }
  Menu& menu() override { return *_model; }
  void setTitle(const std::string& title) override;

  Q_INVOKABLE void openMenu();

 protected:
  /// The title is the tool tip where it is cut.
  bool event(QEvent* event) override;
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  std::shared_ptr<Menu> _model = std::make_shared<Menu>();
  QString _title;
  QPointer<QtMenu> _openMenu;
};

}  // namespace qf
