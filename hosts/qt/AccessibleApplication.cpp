// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/AccessibleApplication.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QApplication>
#include <QMenu>

namespace qf {
namespace {

class AccessibleApplication final : public QAccessibleApplication {
 public:
  int childCount() const override {
    return QAccessibleApplication::childCount() + static_cast<int>(openMenus().size());
  }

  QAccessibleInterface* child(int index) const override {
    const int windows = QAccessibleApplication::childCount();
    if (index < windows) return QAccessibleApplication::child(index);
    return QAccessible::queryAccessibleInterface(openMenus().value(index - windows));
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto menu = openMenus().indexOf(child->object());
    if (menu < 0) return QAccessibleApplication::indexOfChild(child);
    return QAccessibleApplication::childCount() + static_cast<int>(menu);
  }

 private:
  static QObjectList openMenus() {
    QObjectList menus;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      const bool isOpen = widget->isVisible() && widget->parentWidget() == nullptr;
      if (isOpen && qobject_cast<QMenu*>(widget) != nullptr) menus << widget;
    }
    return menus;
  }
};

QAccessibleInterface* make(const QString& className, QObject* object) {
  if (object != qApp || className != "QApplication") return nullptr;
  return new AccessibleApplication;
}

}  // namespace

void showMenusToAccessibility() { QAccessible::installFactory(make); }

}  // namespace qf
