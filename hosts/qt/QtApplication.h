// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>

#include "host/Application.h"

namespace qf {

/// The process as a Qt application without a window of its own. Made before any other object of Qt.
class QtApplication final : public Application {
 public:
  /// Both are kept by reference and must outlive the object.
  QtApplication(int& argc, char** argv);

  int run(ApplicationDelegate& delegate) override;
  void terminate() override;

  /// The program was started once more; ignored outside of `run`.
  void reopen();

 private:
  QApplication _application;
  ApplicationDelegate* _delegate = nullptr;
};

}  // namespace qf
