// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <chrono>
#include <thread>

namespace qf {

/// Runs the event loop until that holds; false after five seconds without it.
template <class Condition>
bool runUntil(Condition condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.elapsed() > 5000) return false;
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace qf
