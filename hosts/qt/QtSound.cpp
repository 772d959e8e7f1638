// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtSound.h"

#include <QApplication>

namespace qf {

void QtSound::beep() { QApplication::beep(); }

}  // namespace qf
