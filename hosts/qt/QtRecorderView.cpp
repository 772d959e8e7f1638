// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtRecorderView.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "host/EventState.h"
#include "host/KeyboardLayout.h"
#include "hosts/qt/Announcer.h"
#include "hosts/qt/RecorderCellPainter.h"

namespace qf {
namespace {

constexpr std::uint64_t namelessKey = 0xFFFF;
constexpr std::uint64_t keyW = 13, keyQ = 12;
constexpr int highPriority = 90;
/// A held key repeats as releases and presses, which Qt does not always tell from others. On a busy
/// machine a release and the press that belongs to it may come this far apart.
constexpr int repeatGapInMilliseconds = 200;
constexpr int widestTitleInCharacters = 26;

QRectF toQRect(const Rect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

Point toPoint(QPointF point) { return {point.x(), point.y()}; }

/// What begins recording by the keyboard.
bool isPressKey(const QKeyEvent& event) {
  const int key = event.key();
  return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter ||
         key == Qt::Key_Select;
}

}  // namespace

QtRecorderView::QtRecorderView(Host host, QWidget* parent) : QWidget(parent), _host(host) {
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  _sinceRelease.setSingleShot(true);
  _sinceRelease.setInterval(repeatGapInMilliseconds);
  connect(&_keyboard, &KeyboardHold::availabilityChanged, this,
          &QtRecorderView::availabilityChanged);
  connect(&_sinceRelease, &QTimer::timeout, this, &QtRecorderView::stopListening);
}

QtRecorderView::~QtRecorderView() { stopListening(); }

void QtRecorderView::setDelegate(RecorderViewDelegate* delegate) {
  _delegate = delegate;
  setNeedsDisplay();
}

Rect QtRecorderView::bounds() const {
  return {{0, 0}, {static_cast<double>(width()), static_cast<double>(height())}};
}

void QtRecorderView::setNeedsDisplay() {
  update();
  if (!_delegate) return;
  setEnabled(_delegate->isEnabled());
  setFocusPolicy(_delegate->acceptsFirstResponder() ? Qt::StrongFocus : Qt::NoFocus);
  tellAccessibility();
}

void QtRecorderView::tellAccessibility() {
  const QString name = QString::fromStdString(_delegate->accessibilityLabel());
  if (std::exchange(_toldName, name) != name) {
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
  }
  const bool isRecording = _delegate->isRecording();
  if (std::exchange(_toldRecording, isRecording) != isRecording) {
    QAccessible::State state;
    state.pressed = true;
    QAccessibleStateChangeEvent changed(this, state);
    QAccessible::updateAccessibility(&changed);
  }
}

void QtRecorderView::postAnnouncement(const std::string& text, int priority) {
  if (QAccessibleInterface* source = QAccessible::queryAccessibleInterface(this)) {
    _host.announcer.announce(*source, QString::fromStdString(text), priority >= highPriority);
  }
}

// The mouse.

void QtRecorderView::setTrackingArea(std::optional<Rect> area) {
  _trackingArea = area;
  _isMouseInside = true;
  if (!underMouse()) followMouse({-1, -1});
}

void QtRecorderView::followMouse(QPointF place) {
  const bool isInside = _trackingArea && toQRect(*_trackingArea).contains(place);
  if (std::exchange(_isMouseInside, isInside) == isInside || !_delegate) return;
  if (isInside) {
    _delegate->mouseEntered();
  } else {
    _delegate->mouseExited();
  }
}

void QtRecorderView::mouseMoveEvent(QMouseEvent* event) { followMouse(event->position()); }
void QtRecorderView::leaveEvent(QEvent* /*event*/) { followMouse({-1, -1}); }

void QtRecorderView::mousePressEvent(QMouseEvent* event) {
  const bool isClick = event->button() == Qt::LeftButton && _delegate;
  if (!isClick || !_delegate->mouseDown(toPoint(event->position()))) {
    QWidget::mousePressEvent(event);
  }
}

void QtRecorderView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (_delegate) _delegate->boundsDidChange();
}

bool QtRecorderView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !_delegate) return QWidget::event(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  for (std::size_t tag = 0; tag < _toolTips.size(); ++tag) {
    const QRect area = toQRect(_toolTips[tag]).toAlignedRect();
    const auto text = _delegate->stringForToolTip(tag);
    if (!text || !area.contains(help.pos())) continue;
    QToolTip::showText(help.globalPos(), QString::fromStdString(*text), this, area);
    return true;
  }
  QToolTip::hideText();
  return true;
}

// The keyboard.

void QtRecorderView::setEventMonitor(EventMonitor monitor) {
  _monitor = std::move(monitor);
  if (!_monitor) {
    // In the midst of a press its end is awaited.
    if (!_keyToSwallow) stopListening();
    return;
  }
  _keyToSwallow = 0;
  _sinceRelease.stop();
  _isPressConsumed.reset();
  qApp->installEventFilter(this);
  if (!window()->isActiveWindow()) window()->activateWindow();
  _keyboard.take(window()->windowHandle());
}

void QtRecorderView::stopListening() {
  _keyToSwallow = 0;
  _sinceRelease.stop();
  _isPressConsumed.reset();
  _keyboard.letGo();
  if (!_resignKeyObserver) qApp->removeEventFilter(this);
}

void QtRecorderView::setResignKeyObserver(std::function<void()> observer) {
  _resignKeyObserver = std::move(observer);
  if (_resignKeyObserver) {
    qApp->installEventFilter(this);
  } else if (!_keyboard.isWanted()) {
    qApp->removeEventFilter(this);
  }
}

/// Whether this takes the keyboard from the view, or it from the sight of the person.
bool QtRecorderView::isForgotten(QObject* watched, QEvent* event) const {
  if (watched == this) {
    return event->type() == QEvent::Hide ||
           (event->type() == QEvent::EnabledChange && !isEnabled());
  }
  if (watched != window()) return false;
  return event->type() == QEvent::WindowDeactivate || event->type() == QEvent::WindowBlocked;
}

bool QtRecorderView::eventFilter(QObject* watched, QEvent* event) {
  if (isForgotten(watched, event)) {
    if (const auto observer = _resignKeyObserver) observer();
    stopListening();
    return false;
  }
  switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      // Windows get a key before their widgets do.
      return watched->isWindowType() && handleKey(static_cast<QKeyEvent&>(*event));
    default:
      return false;
  }
}

bool QtRecorderView::handleKey(QKeyEvent& event) {
  if (event.type() == QEvent::KeyRelease) return handleRelease(event);
  // A press comes twice, at first to ask whether it is meant for a shortcut of the window.
  const bool isConsumed =
      event.type() == QEvent::KeyPress && _isPressConsumed ? *_isPressConsumed : handlePress(event);
  _isPressConsumed.reset();
  if (event.type() == QEvent::ShortcutOverride) _isPressConsumed = isConsumed;
  if (isConsumed) event.accept();
  return isConsumed;
}

bool QtRecorderView::handlePress(QKeyEvent& event) {
  const bool isRepeat = event.isAutoRepeat() || _sinceRelease.isActive();
  if (!_monitor) {
    if (isRepeat && event.nativeScanCode() == _keyToSwallow) {
      _sinceRelease.stop();
      return true;
    }
    stopListening();
    return false;
  }
  if (event.isAutoRepeat()) return true;
  _keyToSwallow = event.nativeScanCode();
  const auto monitor = _monitor;
  const bool isConsumed = monitor(keyEvent(event));
  if (_monitor) {
    _keyToSwallow = 0;
  } else if (!isConsumed) {
    stopListening();
  }
  return isConsumed;
}

bool QtRecorderView::handleRelease(const QKeyEvent& event) {
  if (!_monitor && event.nativeScanCode() == _keyToSwallow) _sinceRelease.start();
  if (event.isAutoRepeat()) return true;
  const bool isModifier = _host.keyboardLayout.modifierFlagsOfKey(event.nativeScanCode()) != 0;
  if (_monitor && isModifier) {
    const auto monitor = _monitor;
    return monitor(keyEvent(event));
  }
  return false;
}

KeyEvent QtRecorderView::keyEvent(const QKeyEvent& event) const {
  const KeyboardLayout& layout = _host.keyboardLayout;
  std::uint64_t flags = layout.modifierFlagsForHardwareState(event.nativeModifiers());
  const std::uint64_t ownFlags = layout.modifierFlagsOfKey(event.nativeScanCode());
  if (event.type() == QEvent::KeyRelease) {
    flags &= ~ownFlags;
  } else {
    flags |= ownFlags;
  }
  const auto keyCode = layout.keyCodeForHardwareCode(event.nativeScanCode());
  if (!keyCode) return {namelessKey, flags};
  if (flags == modifier::control) {
    const auto typed = layout.translateKey(*keyCode);
    if (typed == "w") return {keyW, modifier::command};
    if (typed == "q") return {keyQ, modifier::command};
  }
  return {*keyCode, flags};
}

void QtRecorderView::keyPressEvent(QKeyEvent* event) {
  if (!isPressKey(*event) || event->isAutoRepeat()) {
    QWidget::keyPressEvent(event);
    return;
  }
  _armedKey = event->nativeScanCode();
}

void QtRecorderView::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat() || std::exchange(_armedKey, 0) != event->nativeScanCode() ||
      !isPressKey(*event) || !_delegate) {
    QWidget::keyReleaseEvent(event);
    return;
  }
  _delegate->accessibilityPerformPress();
}

// The look.

void QtRecorderView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void QtRecorderView::focusOutEvent(QFocusEvent* event) {
  _armedKey = 0;
  QWidget::focusOutEvent(event);
  update();
}

void QtRecorderView::paintEvent(QPaintEvent* /*event*/) {
  if (!_delegate) return;
  QPainter painter(this);
  const auto cells = _delegate->drawRect();
  for (const RecorderCell& cell : cells) paintRecorderCell(painter, cell, *this);
  if (!hasFocus() || cells.empty()) return;
  paintRecorderFocusRing(painter, toQRect(_delegate->focusRingMaskBounds()), cells.front().style,
                         *this);
}

QSize QtRecorderView::sizeHint() const {
  QFont cellFont = font();
  const auto cells = _delegate ? _delegate->drawRect() : std::vector<RecorderCell>();
  if (!cells.empty()) cellFont.setPointSizeF(cells.front().fontSize);
  const QFontMetrics metrics(cellFont);
  return {metrics.averageCharWidth() * widestTitleInCharacters, metrics.height() + 8};
}

QSize QtRecorderView::minimumSizeHint() const {
  return {sizeHint().width() / 2, sizeHint().height()};
}

}  // namespace qf
