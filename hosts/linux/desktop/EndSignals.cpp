// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/EndSignals.h"

#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QCoreApplication>

namespace qf {
namespace {

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

int arrived = -1;  // an eventfd, since a handler may do no more than write

extern "C" void noteEndSignal(int) { eventfd_write(arrived, 1); }

void handleEndSignals(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : endSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals()
    : _notifier(arrived = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), QSocketNotifier::Read) {
  QObject::connect(&_notifier, &QSocketNotifier::activated, qApp, [this] {
    _notifier.setEnabled(false);
    QCoreApplication::exit();  // quit() asks the windows first, and any of them may refuse
  });
  handleEndSignals(noteEndSignal);
}

EndSignals::~EndSignals() {
  handleEndSignals(SIG_DFL);
  close(arrived);
}

}  // namespace qf
