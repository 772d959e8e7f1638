// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QThreadPool>
#include <optional>

#include "engine/cleaners/Cleaner.h"

namespace qf {

/// Runs a cleaner over a sample without holding up the window or the commands of the agent. While
/// one runs, the latest of those that were asked for waits. Main thread; on its end it waits for
/// the cleaner that runs.
class CleanerTrial final : public QObject {
  Q_OBJECT

 public:
  explicit CleanerTrial(QObject* parent = nullptr);

  void run(CleanerFunction clean, std::string sample);

 signals:
  /// One of the two is empty. Not told of a trial that another one has overtaken.
  void finished(const QString& result, const QString& problem);

 private:
  struct Trial {
    CleanerFunction clean;
    std::string sample;
  };
  void start(Trial trial);
  void end(const Result<std::string>& result);

  bool _isRunning = false;
  std::optional<Trial> _next;
  QThreadPool _thread;
};

}  // namespace qf
