// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "host/RecorderView.h"
#include "hosts/qt/KeyboardHold.h"

class QKeyEvent;

namespace qf {

class Announcer;
class KeyboardLayout;

/// A recorder in any window. Space or Return begin recording where it has the keyboard focus. Until
/// the key that was recorded is let go, its repeats are nobody's.
class QtRecorderView final : public QWidget, public RecorderView {
  Q_OBJECT

 public:
  /// Both outlive the view.
  struct Host {
    const KeyboardLayout& keyboardLayout;
    Announcer& announcer;
  };

  explicit QtRecorderView(Host host, QWidget* parent = nullptr);
  ~QtRecorderView() override;

  void setDelegate(RecorderViewDelegate* delegate) override;
  Rect bounds() const override;
  void setNeedsDisplay() override;
  void setTrackingArea(std::optional<Rect> area) override;
  void setToolTips(std::vector<Rect> areas) override { _toolTips = std::move(areas); }
  void setEventMonitor(EventMonitor monitor) override;
  void setResignKeyObserver(std::function<void()> observer) override;
  void postAnnouncement(const std::string& text, int priority) override;
  Availability availability() const override { return _keyboard.availability(); }

  /// Null before the first delegate and after the last.
  RecorderAccessibility* accessibility() const { return _delegate; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void availabilityChanged();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// What a key of the window system means here.
  KeyEvent keyEvent(const QKeyEvent& event) const;
  bool handleKey(QKeyEvent& event);
  bool handlePress(QKeyEvent& event);
  bool handleRelease(const QKeyEvent& event);
  bool isForgotten(QObject* watched, QEvent* event) const;
  void stopListening();
  void followMouse(QPointF place);
  void tellAccessibility();

  Host _host;
  RecorderViewDelegate* _delegate = nullptr;
  std::optional<Rect> _trackingArea;
  bool _isMouseInside = false;
  std::vector<Rect> _toolTips;
  EventMonitor _monitor;
  std::function<void()> _resignKeyObserver;
  KeyboardHold _keyboard;
  /// Of the press that is under way: whether it was consumed as a possible shortcut of the window.
  std::optional<bool> _isPressConsumed;
  quint32 _keyToSwallow = 0;  // until it is let go
  QTimer _sinceRelease;
  quint32 _armedKey = 0;  // begins recording when it is let go
  QString _toldName;
  bool _toldRecording = false;
};

}  // namespace qf
