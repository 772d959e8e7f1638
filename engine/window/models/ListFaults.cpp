// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/ListFaults.h"

#include "engine/window/models/PersonalLists.h"

namespace qf {

ListFaults::ListFaults(const PersonalLists& lists, QWidget* parent)
    : QLabel(parent), _lists(lists) {
  setWordWrap(true);
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  connect(&_lists, &PersonalLists::changed, this, &ListFaults::update);
  update();
}

void ListFaults::update() {
  const QString text = _lists.faults();
  if (text != this->text()) setText(text);
  setVisible(!text.isEmpty());
}

}  // namespace qf
