// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QStandardItemModel>

#include "engine/window/WindowHost.h"
#include "host/DistributedNotificationCenter.h"
#include "kit/QFKSharedContainer.h"

namespace qf {

class QFKListModel;

/// What a shortcut can do: every cleaner, and every group whose menu can be shown, as the engine
/// has published them. Main thread.
class ActionChoices final : public QObject {
  Q_OBJECT

 public:
  /// Of an item: what the settings store for it.
  static constexpr int valueRole = Qt::UserRole;

  explicit ActionChoices(const WindowHost& host);
  ~ActionChoices() override;

  QStandardItemModel& cleaners() { return _cleaners; }
  QStandardItemModel& groups() { return _groups; }
  void read();

 signals:
  void changed();

 private:
  void readCleaners(const QFKListModel& list);
  void readGroups(const QFKListModel& list);

  const Bundle& _bundle;
  FileManager& _files;
  DistributedNotificationCenter& _notifications;
  QFKSharedContainer _container;
  DistributedNotificationCenter::ObserverID _observer;
  QStandardItemModel _cleaners;
  QStandardItemModel _groups;
};

}  // namespace qf
