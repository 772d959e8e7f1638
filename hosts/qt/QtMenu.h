// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QMenu>
#include <memory>

#include "host/Menu.h"

namespace qf {

/// Draws a menu for one opening: its items are those of the moment it opens, whatever becomes of
/// the model meanwhile. A submenu asks for its own when it opens. An item that is picked acts from
/// the run loop, once the menu is closed and has given back mouse and keyboard.
class QtMenu final : public QMenu {
 public:
  explicit QtMenu(std::shared_ptr<Menu> model, QWidget* parent = nullptr);

  /// Heads the menu as an item that cannot be picked; empty for none. Before it opens.
  void setNote(const QString& note) { _note = note; }
  /// Opens below the place, or above it where there is more room, and goes when it has closed. A
  /// menu without items is not opened and goes at once.
  void openBeside(const QRect& place);

 protected:
  void showEvent(QShowEvent* event) override;
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

 private:
  struct Row {
    MenuItemRef item;
    QString indentation;
    QString keyEquivalent;
  };

  void prepare();
  void addRow(const MenuItemRef& item);
  void addSubmenu(QAction* action);
  void makeRoomForRows();

  std::shared_ptr<Menu> _model;
  QString _note;
  QHash<const QAction*, Row> _rows;
  int _keyEquivalentWidth = 0;
};

}  // namespace qf
