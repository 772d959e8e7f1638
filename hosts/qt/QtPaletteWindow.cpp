// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtPaletteWindow.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSizeGrip>
#include <QWindow>
#include <utility>

#include "host/EventState.h"
#include "hosts/qt/AddedModifiers.h"
#include "hosts/qt/MenuColor.h"
#include "hosts/qt/PanelSystem.h"
#include "hosts/qt/PlaceInView.h"

namespace qf {
namespace {

constexpr QSize firstSize(230, 420);
constexpr QSize smallestSize(140, 160);
constexpr int firstMargin = 40;  // from the screen's edges
constexpr int spacing = 6;
// A window that is dragged tells of its place once it rests.
constexpr int frameRestInMs = 250;

constexpr Qt::WindowFlags panelFlags =
    Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;

QList<QRect> areasForWindows() {
  QList<QRect> areas;
  for (const QScreen* screen : QGuiApplication::screens()) areas << screen->availableGeometry();
  return areas;
}

QRect firstFrame() {
  const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
  return {QPoint(area.right() - firstSize.width() - firstMargin, area.top() + firstMargin),
          firstSize};
}

std::optional<QtPaletteTable::Move> moveOfKey(const QKeyEvent& event) {
  using Move = QtPaletteTable::Move;
  const bool withControl = (event.modifiers() & Qt::ControlModifier) != 0;
  switch (event.key()) {
    case Qt::Key_Up:
      return Move::up;
    case Qt::Key_Down:
      return Move::down;
    case Qt::Key_PageUp:
      return Move::pageUp;
    case Qt::Key_PageDown:
      return Move::pageDown;
    case Qt::Key_Home:
      return withControl ? std::optional(Move::first) : std::nullopt;
    case Qt::Key_End:
      return withControl ? std::optional(Move::last) : std::nullopt;
    default:
      return std::nullopt;
  }
}

bool isReturn(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

QtPaletteWindow::QtPaletteWindow(PaletteWindowDelegate& delegate, PanelSystem& panelSystem,
                                 AddedModifiers& added, PaletteQuestions ask)
    : QWidget(nullptr, panelFlags),
      _delegate(delegate),
      _panelSystem(panelSystem),
      _added(added),
      _ask(std::move(ask)),
      _table(delegate, added, this) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_MacAlwaysShowToolWindow);
  setWindowTitle("Quenfold");
  layOut();
  _personsFrame = firstFrame();
  _toldFrame = _personsFrame;

  _table.setEmptyText([this] { return emptyText(); });
  connect(&_table, &QtPaletteTable::pressed, this, &QtPaletteWindow::apply);
  connect(&_editGroupButton, &QPushButton::clicked, this, [this] { _delegate.editGroup(); });
  connect(&_searchField, &QLineEdit::textChanged, this, [this] {
    if (_isSettingText) return;
    _delegate.controlTextDidChange();
    _table.goToTop();
  });
  _frameTimer.setSingleShot(true);
  _frameTimer.setInterval(frameRestInMs);
  connect(&_frameTimer, &QTimer::timeout, this, &QtPaletteWindow::tellAboutFrame);
  connect(qApp, &QCoreApplication::aboutToQuit, this, &QtPaletteWindow::tellAboutFrame);
  const auto follow = [this](const QScreen* screen) {
    connect(screen, &QScreen::availableGeometryChanged, this, &QtPaletteWindow::comeIntoView,
            Qt::QueuedConnection);
  };
  for (const QScreen* screen : QGuiApplication::screens()) follow(screen);
  connect(qApp, &QGuiApplication::screenAdded, this, follow);
  for (const auto signal : {&QGuiApplication::screenAdded, &QGuiApplication::screenRemoved}) {
    connect(qApp, signal, this, &QtPaletteWindow::comeIntoView, Qt::QueuedConnection);
  }
}

void QtPaletteWindow::layOut() {
  setMinimumSize(smallestSize);
  _editGroupButton.setText(tr("Edit…"));
  _editGroupButton.setAccessibleName(tr("Edit groups"));
  _editGroupButton.setAutoDefault(true);  // Return presses it too
  _clipboardOnly.setText(tr("Clipboard only"));
  _clipboardOnly.setToolTip(tr("Clean what is on the clipboard and leave the application alone"));
  _clipboardOnly.setFocusPolicy(Qt::TabFocus);
  _searchField.setPlaceholderText(tr("Search"));
  _searchField.setAccessibleName(tr("Search cleaners"));
  _searchField.setClearButtonEnabled(true);
  colorPlaceholder();
  _searchField.installEventFilter(this);

  auto* groupRow = new QHBoxLayout;
  groupRow->setSpacing(spacing);
  groupRow->addWidget(&_namePopup, 1);
  groupRow->addWidget(&_editGroupButton);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(spacing, spacing, spacing, spacing);
  rows->setSpacing(spacing);
  rows->addWidget(&_title);
  rows->addLayout(groupRow);
  rows->addWidget(&_searchField);
  rows->addWidget(&_table, 1);
  auto* lowestRow = new QHBoxLayout;
  lowestRow->addWidget(&_clipboardOnly, 1);
  lowestRow->addWidget(new QSizeGrip(this), 0, Qt::AlignBottom);
  rows->addLayout(lowestRow);
  setTabOrder(&_searchField, &_namePopup);
  setTabOrder(&_namePopup, &_editGroupButton);
  setTabOrder(&_editGroupButton, &_clipboardOnly);
  _searchField.setFocus();
}

void QtPaletteWindow::colorPlaceholder() {
  // Qt's own is half of the text's colour, which is too faint to read on many grounds.
  QPalette colors = palette();
  colors.setColor(QPalette::PlaceholderText,
                  fadedText(colors.color(QPalette::Text), colors.color(QPalette::Base)));
  _searchField.setPalette(colors);
}

void QtPaletteWindow::orderFront() {
  if (!isVisible()) {
    comeIntoView();
    winId();
    _panelSystem.prepare(*windowHandle());
    show();
    _searchField.selectAll();  // typing replaces what was looked for before
    _keepsSelection = _searchField.hasSelectedText();
  }
  raise();
  if (_ask.takesKeyboard()) takeKeyboard();
}

void QtPaletteWindow::orderOut() {
  resignKeyWindow();
  tellAboutFrame();
  hide();
}

void QtPaletteWindow::takeKeyboard() {
  _searchField.setFocus();
  // Asked for even where Qt takes the window for active: it is slow to notice that another one is.
  _panelSystem.willTakeKeyboard(*windowHandle());
  _isTakingKeyboard = true;
  setAcceptsKeyboard(true);
  activateWindow();
}

void QtPaletteWindow::resignKeyWindow() {
  if (windowHandle() == nullptr) return;
  _panelSystem.giveKeyboardBack(*windowHandle());
  setAcceptsKeyboard(false);
}

void QtPaletteWindow::setAcceptsKeyboard(bool accepts) {
  if (windowHandle() != nullptr) windowHandle()->setFlag(Qt::WindowDoesNotAcceptFocus, !accepts);
}

void QtPaletteWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) colorPlaceholder();
  // No list of windows has it: minimised it could not be brought back.
  if (event->type() == QEvent::WindowStateChange && isMinimized()) orderOut();
  if (event->type() != QEvent::ActivationChange) return;
  // The next click on a cleaner leaves the keyboard where it is then. A late word of having lost it
  // does not count while it is being taken again.
  const bool wasTaking = std::exchange(_isTakingKeyboard, false);
  if (!isActiveWindow() && !wasTaking) setAcceptsKeyboard(false);
  if (isActiveWindow() && _table.highlightedRow() < 0)
    _table.moveHighlight(QtPaletteTable::Move::down);
  _table.setHighlightShown(isActiveWindow());
}

void QtPaletteWindow::closeEvent(QCloseEvent* event) {
  orderOut();
  event->accept();  // refused, it would stop the session from ending
}

bool QtPaletteWindow::eventFilter(QObject* /*watched*/, QEvent* event) {
  const bool isClick =
      event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
  if (isClick) {
    takeKeyboard();
    if (std::exchange(_keepsSelection, false)) return true;
  }
  return event->type() == QEvent::KeyPress && handleSearchKey(static_cast<QKeyEvent&>(*event));
}

bool QtPaletteWindow::handleSearchKey(const QKeyEvent& event) {
  if (const auto move = moveOfKey(event)) {
    _table.moveHighlight(*move);
  } else if (isReturn(event)) {
    // Held down it would go on in the application that has the keyboard after the first.
    if (!event.isAutoRepeat()) _table.press(_table.highlightedRow());
  } else if (event.key() == Qt::Key_Escape) {
    cancel();
  } else {
    return false;
  }
  return true;
}

void QtPaletteWindow::keyPressEvent(QKeyEvent* event) {
  // What a button has no use for: letters typed there search as well.
  if (event->key() == Qt::Key_Escape) {
    cancel();
  } else if (focusWidget() != &_searchField && !event->text().isEmpty() &&
             event->text().at(0).isPrint()) {
    _searchField.setFocus();
    QCoreApplication::sendEvent(&_searchField, event);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void QtPaletteWindow::apply() {
  const AddedModifiers::Scope scope(_added, _clipboardOnly.isChecked() ? modifier::option : 0);
  _delegate.apply();
}

void QtPaletteWindow::cancel() {
  if (_searchField.text().isEmpty()) {
    orderOut();
  } else {
    _searchField.clear();
  }
}

QString QtPaletteWindow::emptyText() const {
  if (!_searchField.text().isEmpty()) return tr("No cleaner found");
  const QString fault = _ask.fault();
  return fault.isEmpty() ? tr("This group is empty") : fault;
}

std::string QtPaletteWindow::stringValue() const { return _searchField.text().toStdString(); }

void QtPaletteWindow::setStringValue(const std::string& text) {
  const QScopedValueRollback setting(_isSettingText, true);
  _searchField.setText(QString::fromStdString(text));
  // Queued: the rows that go with the text are set after it.
  QMetaObject::invokeMethod(&_table, &QtPaletteTable::goToTop, Qt::QueuedConnection);
}

std::string QtPaletteWindow::stringWithSavedFrame() const {
  return frameString(_personsFrame).toStdString();
}

void QtPaletteWindow::setFrameFromString(const std::string& frame) {
  const auto saved = frameFromString(QString::fromStdString(frame));
  if (!saved) return;
  _personsFrame = _toldFrame = QRect(saved->topLeft(), saved->size().expandedTo(smallestSize));
  comeIntoView();
}

void QtPaletteWindow::comeIntoView() {
  _frameInView = placeInView(_personsFrame, areasForWindows());
  if (frame() == _frameInView) return;
  resize(_frameInView.size());
  move(_frameInView.topLeft());
}

void QtPaletteWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void QtPaletteWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  frameChanged();
}

void QtPaletteWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  frameChanged();
}

void QtPaletteWindow::frameChanged() {
  if (isVisible()) _frameTimer.start();
}

void QtPaletteWindow::tellAboutFrame() {
  _frameTimer.stop();
  if (!isVisible() || frame() == _frameInView) return;
  _personsFrame = _frameInView = frame();
  if (_personsFrame == _toldFrame) return;
  const QRect before = std::exchange(_toldFrame, _personsFrame);
  if (before.topLeft() != _personsFrame.topLeft()) _delegate.windowDidMove();
  if (before.size() != _personsFrame.size()) _delegate.windowDidResize();
}

}  // namespace qf
