// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "host/PaletteWindow.h"
#include "hosts/qt/PaletteQuestions.h"
#include "hosts/qt/PanelTitle.h"
#include "hosts/qt/QtPaletteTable.h"
#include "hosts/qt/QtPopUpButton.h"

namespace qf {

class AddedModifiers;
class PanelSystem;

/// The palette's panel. Without the keyboard it works by mouse alone and no click takes the
/// keyboard away from the application in front, but one into the search field. With it, letters
/// search, the arrows move between cleaners, Return applies and Escape clears, then hides.
class QtPaletteWindow final : public QWidget, public PaletteWindow, private PaletteSearchField {
  Q_OBJECT

 public:
  QtPaletteWindow(PaletteWindowDelegate& delegate, PanelSystem& panelSystem, AddedModifiers& added,
                  PaletteQuestions ask);

  bool isVisible() const override { return QWidget::isVisible(); }
  void orderFront() override;
  void orderOut() override;
  void resignKeyWindow() override;
  std::string stringWithSavedFrame() const override;
  void setFrameFromString(const std::string& frame) override;
  PalettePopUpButton& namePopup() override { return _namePopup; }
  void setEditGroupButtonHidden(bool hidden) override { _editGroupButton.setHidden(hidden); }
  PaletteTableView& cleanerListTableView() override { return _table; }
  PaletteSearchField& searchField() override { return *this; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::string stringValue() const override;
  void setStringValue(const std::string& text) override;

  void layOut();
  void colorPlaceholder();
  void takeKeyboard();
  void setAcceptsKeyboard(bool accepts);
  void comeIntoView();
  void frameChanged();
  void tellAboutFrame();
  bool handleSearchKey(const QKeyEvent& event);
  void apply();
  void cancel();
  QString emptyText() const;
  QRect frame() const { return {pos(), size()}; }

  PaletteWindowDelegate& _delegate;
  PanelSystem& _panelSystem;
  AddedModifiers& _added;
  PaletteQuestions _ask;
  PanelTitle _title{"Quenfold", this};
  QtPopUpButton _namePopup{this};
  QPushButton _editGroupButton{this};
  QLineEdit _searchField{this};
  QtPaletteTable _table;
  QCheckBox _clipboardOnly{this};
  bool _isTakingKeyboard = false;
  bool _isSettingText = false;
  bool _keepsSelection = false;  ///< at the first click into the search field
  QRect _personsFrame;           // where the person put it
  QRect _frameInView;            // where it had to go instead
  QRect _toldFrame;
  QTimer _frameTimer;
};

}  // namespace qf
