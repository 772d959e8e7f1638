// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <optional>

#include "engine/window/widgets/ChoiceBox.h"
#include "hosts/qt/QtRecorderView.h"
#include "kit/QFKShortcutActionItem.h"
#include "shortcuts/MASShortcutView.h"

class QHBoxLayout;

namespace qf {

class ActionChoices;
struct RecorderHost;

/// One shortcut: its keys, what they do, whether they work, and its place among the others.
class ShortcutRow final : public QGroupBox {
  Q_OBJECT

 public:
  /// All outlive the row. The palette's shortcut has no action to choose and stays in its place.
  ShortcutRow(RecorderHost& host, ActionChoices& choices, bool isPalette);
  ~ShortcutRow() override;

  void showItem(const QFKShortcutActionItem& item, bool isFirst, bool isLast);
  /// What the agent says of it.
  void setState(const QString& state);
  void focusRecorder() { _recorderView->setFocus(); }
  void focusRemoval() { _remove->setFocus(); }
  void stopRecording() { _recorder.setRecording(false); }
  /// In the order in which Tab goes through them.
  QList<QWidget*> focusChain() const;

 signals:
  void recorded(const std::optional<qf::MASShortcut>& shortcut);
  void actionChosen(std::int64_t type, const std::string& typeValue);
  void moveAsked(int places);
  void removeAsked();

 private:
  void layOut(bool isPalette);
  void addButtons(QHBoxLayout* line);
  void showAction();
  void showState();

  /// What the shortcut does, and its keys as this desktop writes them.
  QString heading() const;

  RecorderHost& _host;
  ActionChoices& _choices;
  QFKShortcutActionItem _item;
  QtRecorderView* _recorderView;
  MASShortcutView _recorder;
  bool _isShowing = false;
  QComboBox* _action = nullptr;  // none for the palette's
  ChoiceBox* _choice = nullptr;
  QLabel* _stateLabel = new QLabel;
  QString _state;
  QPushButton* _up = nullptr;
  QPushButton* _down = nullptr;
  QPushButton* _remove = nullptr;
};

}  // namespace qf
