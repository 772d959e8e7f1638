// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/AccessiblePalette.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QTimer>

#include "hosts/qt/QtPaletteTable.h"
#include "hosts/qt/QtPopUpButton.h"

namespace qf {
namespace {

/// A row of the table: a cleaner can be pressed, a label heads those below it.
class AccessibleRow final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleRow(QtPaletteTable* table, int row) : _table(table), _row(row) {}

  bool isValid() const override { return _table && _row < _table->rowCount(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return _table ? _table->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(_table);
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  int row() const { return _row; }

  QString text(QAccessible::Text kind) const override {
    if (!isValid() || isSeparator()) return {};
    if (kind == QAccessible::Name)
      return QString::fromStdString(source().objectValueForRow(index()));
    return kind == QAccessible::Description && isCleaner() ? _table->help(_row) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    const QRect cell = isValid() ? _table->cellRect(_row) : QRect();
    if (cell.isEmpty()) return {};
    return {_table->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
  }

  QAccessible::Role role() const override {
    if (isCleaner()) return QAccessible::ListItem;
    return isSeparator() ? QAccessible::Separator : QAccessible::Heading;
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.offscreen = rect().isEmpty();
    state.invisible = !_table->isVisible();
    state.focusable = state.selectable = isCleaner();
    state.focused = state.selected = _table->isActiveWindow() && _row == _table->highlightedRow();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface && isCleaner()
               ? static_cast<QAccessibleActionInterface*>(this)
               : nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }
  void doAction(const QString& action) override {
    if (!isCleaner()) return;
    if (action == setFocusAction()) _table->setHighlightedRow(_row);
    if (action != pressAction()) return;
    // Later, from the run loop: who asks waits for an answer, and may be the application to clean.
    QTimer::singleShot(0, _table, [table = _table, row = _row] { table->press(row); });
  }

 private:
  PaletteTableSource& source() const { return _table->source(); }
  std::size_t index() const { return static_cast<std::size_t>(_row); }
  bool isCleaner() const { return isValid() && source().shouldSelectRow(index()); }
  bool isSeparator() const {
    return isValid() && !isCleaner() && source().cellForRow(index()).title.text == " ";
  }

  QPointer<QtPaletteTable> _table;
  int _row;
};

class AccessibleTable final : public QAccessibleWidget {
 public:
  explicit AccessibleTable(QtPaletteTable* table)
      : QAccessibleWidget(table, QAccessible::List), _table(table) {}
  ~AccessibleTable() override { forgetRows(); }

  int childCount() const override { return _table->rowCount(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    auto known = _rows.constFind(index);
    if (known == _rows.constEnd()) {
      auto* row = new AccessibleRow(_table, index);
      known = _rows.insert(index, QAccessible::registerAccessibleInterface(row));
    }
    return QAccessible::accessibleInterface(*known);
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    return child(_table->rowAt(_table->viewport()->mapFromGlobal(QPoint(x, y))));
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row == nullptr ? -1 : row->row();
  }
  QAccessibleInterface* focusChild() const override { return child(_table->highlightedRow()); }

  void forgetRows() {
    for (const QAccessible::Id row : std::as_const(_rows)) {
      QAccessible::deleteAccessibleInterface(row);
    }
    _rows.clear();
  }

 private:
  QtPaletteTable* _table;
  mutable QHash<int, QAccessible::Id> _rows;
};

class AccessiblePopUpButton final : public QAccessibleWidget {
 public:
  explicit AccessiblePopUpButton(QtPopUpButton* button)
      : QAccessibleWidget(button, QAccessible::ButtonMenu), _button(button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    return state;
  }
  QStringList actionNames() const override {
    return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action != showMenuAction()) {
      QAccessibleWidget::doAction(action);
      return;
    }
    QMetaObject::invokeMethod(_button, &QtPopUpButton::openMenu, Qt::QueuedConnection);
  }

 private:
  QtPopUpButton* _button;
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
  if (auto* table = qobject_cast<QtPaletteTable*>(object)) return new AccessibleTable(table);
  if (auto* button = qobject_cast<QtPopUpButton*>(object)) return new AccessiblePopUpButton(button);
  return nullptr;
}

}  // namespace

void showPaletteToAccessibility() { QAccessible::installFactory(make); }

void forgetAccessibleRows(QtPaletteTable& table) {
  if (!QAccessible::isActive()) return;
  auto* accessible = QAccessible::queryAccessibleInterface(&table);
  if (auto* rows = dynamic_cast<AccessibleTable*>(accessible)) rows->forgetRows();
}

}  // namespace qf
