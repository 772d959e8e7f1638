// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <functional>

#include "engine/window/WindowHost.h"
#include "engine/window/models/ReportingFileManager.h"
#include "host/DistributedNotificationCenter.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"

namespace qf {

/// The agent's settings as the window changes them: on top of what their file holds at that moment,
/// and with an answer where a change cannot be stored. Main thread.
class MenuSettings final : public QObject {
  Q_OBJECT

 public:
  explicit MenuSettings(const WindowHost& host);
  ~MenuSettings() override;

  /// As last read.
  const QFKMenuSettingsManager& current() const { return _manager; }
  void read();

  using Edit = std::function<void(QFKMenuSettingsManager&)>;
  /// Reads the file and has it changed. A file that is there and cannot be understood is first put
  /// aside under another name, which the answer tells; nothing in it is lost.
  [[nodiscard]] std::optional<Error> change(const Edit& edit);

 signals:
  /// By the window or by anyone else.
  void changed();

 private:
  [[nodiscard]] std::optional<Error> putDamagedFileAside();

  ReportingFileManager _files;
  DistributedNotificationCenter& _notifications;
  QFKSharedContainer _container;
  QFKMenuSettingsManager _manager;
  DistributedNotificationCenter::ObserverID _observer;
};

}  // namespace qf
