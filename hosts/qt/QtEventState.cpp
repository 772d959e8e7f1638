// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtEventState.h"

#include <QCursor>
#include <QGuiApplication>

#include "hosts/qt/AddedModifiers.h"

namespace qf {

std::uint64_t QtEventState::modifierFlags() const {
  // Not keyboardModifiers(): that is the state of the last event that came to one of our windows.
  const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
  std::uint64_t flags = _added.flags();
  if (held & Qt::ShiftModifier) flags |= modifier::shift;
  if (held & Qt::ControlModifier) flags |= modifier::control;
  if (held & Qt::AltModifier) flags |= modifier::option;
  if (held & Qt::MetaModifier) flags |= modifier::command;
  return flags;
}

Point QtEventState::mouseLocation() const {
  const QPoint location = QCursor::pos();
  return {static_cast<double>(location.x()), static_cast<double>(location.y())};
}

}  // namespace qf
