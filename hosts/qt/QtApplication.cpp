// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtApplication.h"

#include <QTimer>

namespace qf {

QtApplication::QtApplication(int& argc, char** argv) : _application(argc, argv) {
  // A menu or a palette that closes is never the application's last window.
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

int QtApplication::run(ApplicationDelegate& delegate) {
  delegate.applicationWillFinishLaunching();
  QTimer::singleShot(0, &_application, [&delegate] { delegate.applicationDidFinishLaunching(); });
  const int exitCode = QApplication::exec();
  delegate.applicationWillTerminate();
  return exitCode;
}

void QtApplication::terminate() {
  QTimer::singleShot(0, &_application, [] { QCoreApplication::exit(0); });
}

}  // namespace qf
