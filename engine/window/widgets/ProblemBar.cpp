// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/ProblemBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace qf {

ProblemBar::ProblemBar(QWidget* parent) : QFrame(parent), _label(new QLabel) {
  setFrameShape(QFrame::StyledPanel);
  setVisible(false);
  auto* icon = new QLabel;
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  icon->setAccessibleName(tr("Problem"));
  _label->setWordWrap(true);
  _label->setTextFormat(Qt::PlainText);
  _label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* dismiss = new QToolButton;
  dismiss->setAutoRaise(true);
  dismiss->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
  dismiss->setAccessibleName(tr("Dismiss"));
  dismiss->setToolTip(tr("Dismiss"));
  connect(dismiss, &QToolButton::clicked, this, [this] { setText({}); });

  auto* row = new QHBoxLayout(this);
  row->addWidget(icon, 0, Qt::AlignTop);
  row->addWidget(_label, 1);
  row->addWidget(dismiss, 0, Qt::AlignTop);
}

void ProblemBar::setText(const QString& text) {
  if (text == _label->text()) return;
  _label->setText(text);
  _label->setAccessibleName(text);
  setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  QAccessibleEvent event(_label, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace qf
