// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <utility>

namespace qf {

void QtMainQueue::async(std::function<void()> work) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

}  // namespace qf
