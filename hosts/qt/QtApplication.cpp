// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtApplication.h"

#include <QTimer>
#include <exception>
#include <string>

#include "foundation/Log.h"
#include "hosts/qt/AccessibleApplication.h"
#include "hosts/qt/MenuStyle.h"
#include "hosts/qt/PrimarySelection.h"

namespace qf {

QtApplication::QtApplication(int& argc, char** argv)
    : _application((showMenusToAccessibility(), argc), argv) {
  leavePrimarySelectionAlone();
  // A menu or a palette that closes is never the application's last window.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle(new MenuStyle);
}

bool QtApplication::EventLoop::notify(QObject* receiver, QEvent* event) {
  // Not caught where it ends the process: the crash report shows where it was thrown.
  if (!survivesExceptions) return QApplication::notify(receiver, event);
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& exception) {
    log(std::string("Uncaught exception, ignored: ") + exception.what());
  } catch (...) {
    log("Uncaught exception of an unknown type, ignored");
  }
  return true;
}

int QtApplication::run(ApplicationDelegate& delegate) {
  delegate.applicationWillFinishLaunching();
  // Before the loop turns: no event finds the application half made.
  delegate.applicationDidFinishLaunching();
  _delegate = &delegate;
  _application.survivesExceptions = _endsOnExceptions && !_endsOnExceptions();
  const int exitCode = QApplication::exec();
  _delegate = nullptr;
  delegate.applicationWillTerminate();
  return exitCode;
}

void QtApplication::reopen() {
  if (_delegate != nullptr) _delegate->applicationDidReopen();
}

void QtApplication::terminate() {
  QTimer::singleShot(0, &_application, [] { QCoreApplication::exit(0); });
}

}  // namespace qf
