// SPDX-License-Identifier: Apache-2.0
#include "engine/window/QFWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>

#include "engine/window/pages/Page.h"

namespace qf {
namespace {

constexpr QSize firstSize(860, 620);

QWidget* scrolling(Page* page) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(page);
  return area;
}

}  // namespace

QFWindow::QFWindow(const WindowHost& host) : _colorScheme(host.bus), _models(host) {
  setWindowTitle("Quenfold");
  setWindowIcon(QIcon::fromTheme("org.quenfold.Quenfold"));
  addPages();
  layOut();
  addKeys();
  connect(_pageList, &QListWidget::currentRowChanged, this, &QFWindow::showPage);
  _pageList->setCurrentRow(0);
  _pageList->setFocus();
  resize(firstSize.boundedTo(screen()->availableSize() * 0.95));
}

/// Pages go before what they show.
QFWindow::~QFWindow() { delete _pageStack; }

void QFWindow::addPages() {
  _pages = makePages(_models);
  for (const PageEntry& entry : _pages) {
    _pageList->addItem(new QListWidgetItem(QIcon::fromTheme(entry.iconName), entry.title));
    entry.page->setAccessibleName(entry.title);
    _pageStack->addWidget(scrolling(entry.page));
    connect(entry.page, &Page::problem, _problemBar, &ProblemBar::setText);
  }
}

void QFWindow::layOut() {
  _pageList->setAccessibleName(tr("Pages"));
  _pageList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  constexpr int spacing = 3;
  _pageList->setSpacing(spacing);
  const int margin = 4 * _pageList->fontMetrics().averageCharWidth();
  _pageList->setFixedWidth(_pageList->sizeHintForColumn(0) + margin);
  auto* column = new QVBoxLayout;
  column->addWidget(_problemBar);
  column->addWidget(_pageStack, 1);
  auto* row = new QHBoxLayout(this);
  row->addWidget(_pageList);
  row->addLayout(column, 1);
}

void QFWindow::addKeys() {
  const auto onKeys = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  for (const auto close : {QKeySequence::Close, QKeySequence::Quit}) {
    onKeys(close, [this] { this->close(); });
  }
  const auto turn = [this](int by) {
    const int count = _pageList->count();
    _pageList->setCurrentRow((_pageList->currentRow() + by + count) % count);
  };
  onKeys(QKeySequence("Ctrl+PgDown"), [turn] { turn(1); });
  onKeys(QKeySequence("Ctrl+PgUp"), [turn] { turn(-1); });
}

void QFWindow::showPage(int row) {
  if (row < 0) return;
  _problemBar->setText({});
  _pageStack->setCurrentIndex(row);
  _pages[static_cast<std::size_t>(row)].page->refresh();
}

void QFWindow::comeToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void QFWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  emit closed();
}

void QFWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && _pageList->count() > 0) {
    _pages[static_cast<std::size_t>(_pageList->currentRow())].page->refresh();
  }
}

}  // namespace qf
