// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>
#include <QString>

#include "host/Menu.h"

namespace qf {

/// The font as Qt draws it; what it leaves open is taken from the base.
inline QFont fontFor(const Font& font, QFont base) {
  if (!font.family.empty()) base.setFamily(QString::fromStdString(font.family));
  if (font.pointSize > 0) base.setPointSizeF(font.pointSize);
  return base;
}

}  // namespace qf
