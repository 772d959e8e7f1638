// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QListView>

class QToolButton;

namespace qf {

/// A list whose rows are moved by dragging, by Alt+Up and Alt+Down, and by buttons; Delete removes.
class ReorderableList final : public QListView {
  Q_OBJECT

 public:
  explicit ReorderableList(const QString& accessibleName, QWidget* parent = nullptr);

  void setModel(QAbstractItemModel* model) override;
  int currentRow() const { return currentIndex().row(); }
  void setCurrentRow(int row) { setCurrentIndex(model()->index(row, 0)); }
  /// Buttons that move and remove the current row. They are enabled where there is something to do.
  QList<QToolButton*> makeButtons();

 public slots:
  void moveUp();
  void moveDown();

 signals:
  void currentRowChanged(int row);
  void removeAsked(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void updateButtons();
  void returnToFormerRow();

  int _formerRow = -1;  // before the model was reset
  QString _formerText;
  QToolButton* _up = nullptr;
  QToolButton* _down = nullptr;
  QToolButton* _remove = nullptr;
};

}  // namespace qf
