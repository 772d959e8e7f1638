// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtPopUpButton.h"

#include <QEvent>
#include <QStyle>
#include <QStyleOptionButton>

namespace qf {

QtPopUpButton::QtPopUpButton(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setAutoDefault(true);  // Return opens it too
  connect(this, &QPushButton::pressed, this, &QtPopUpButton::openMenu);
}

void QtPopUpButton::setTitle(const std::string& title) {
  _title = QString::fromStdString(title);
  setText(QString(_title).replace('&', "&&"));
  setAccessibleName(tr("Group: %1").arg(_title));
}

bool QtPopUpButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool isCut = option.text != text();
    setToolTip(isCut ? "<p>" + _title.toHtmlEscaped() + "</p>" : QString());
  }
  return QPushButton::event(event);
}

void QtPopUpButton::openMenu() {
  if (_openMenu) return;
  _openMenu = new QtMenu(_model);
  connect(_openMenu, &QMenu::aboutToHide, this, [this] { setDown(false); });
  _openMenu->openBeside({mapToGlobal(QPoint(0, 0)), size()});
}

void QtPopUpButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  option->features |= QStyleOptionButton::HasMenu;
  const int arrow = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, option, this);
  const QRect room = style()->subElementRect(QStyle::SE_PushButtonContents, option, this);
  option->text =
      fontMetrics().elidedText(_title, Qt::ElideRight, room.width() - 2 * arrow).replace('&', "&&");
}

}  // namespace qf
