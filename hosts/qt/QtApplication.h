// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>
#include <functional>
#include <utility>

#include "host/Application.h"

namespace qf {

/// The process as a Qt application without a window of its own. Made before any other object of Qt.
class QtApplication final : public Application {
 public:
  /// Both are kept by reference and must outlive the object.
  QtApplication(int& argc, char** argv);

  /// Asked at the start of `run`: whether an uncaught exception ends the process, as it does
  /// without this. Otherwise the exception is logged and its event counts as handled.
  void setEndsOnExceptions(std::function<bool()> endsOnExceptions) {
    _endsOnExceptions = std::move(endsOnExceptions);
  }

  int run(ApplicationDelegate& delegate) override;
  void terminate() override;

  /// The program was started once more; ignored outside of `run`.
  void reopen();

 private:
  class EventLoop final : public QApplication {
   public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

    bool survivesExceptions = false;
  };

  EventLoop _application;
  std::function<bool()> _endsOnExceptions;
  ApplicationDelegate* _delegate = nullptr;
};

}  // namespace qf
