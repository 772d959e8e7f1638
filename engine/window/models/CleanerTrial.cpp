// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/CleanerTrial.h"

#include <utility>

#include "hosts/qt/QtText.h"

namespace qf {

CleanerTrial::CleanerTrial(QObject* parent) : QObject(parent) { _thread.setMaxThreadCount(1); }

void CleanerTrial::run(CleanerFunction clean, std::string sample) {
  Trial trial{std::move(clean), std::move(sample)};
  if (_isRunning) {
    _next = std::move(trial);
  } else {
    start(std::move(trial));
  }
}

void CleanerTrial::start(Trial trial) {
  _isRunning = true;
  _thread.start([this, trial = std::move(trial)] {
    const Result<std::string> result = trial.clean(trial.sample);
    QMetaObject::invokeMethod(
        this, [this, result] { end(result); }, Qt::QueuedConnection);
  });
}

void CleanerTrial::end(const Result<std::string>& result) {
  _isRunning = false;
  if (_next) return start(*std::exchange(_next, std::nullopt));
  if (result) {
    emit finished(toQString(*result), {});
  } else {
    emit finished({}, toQString(result.error().localizedDescription));
  }
}

}  // namespace qf
