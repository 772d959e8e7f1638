// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"
#include "host/AppleEvents.h"

namespace qf {

class DistributedNotificationCenter;
class QFKAEConnectorDelegate;
class Workspace;

/// The channel for commands between two programs: sends commands to the remote program, starting it
/// if need be, and hands incoming ones to the delegate. docs/protocol.md describes the messages.
/// Every failure is a log line and an empty result. Main thread.
class QFKAEConnector {
 public:
  /// All must outlive the connector.
  QFKAEConnector(AppleEvents& appleEvents, Workspace& workspace,
                 DistributedNotificationCenter& distributedNotificationCenter);
  QFKAEConnector(const QFKAEConnector&) = delete;
  QFKAEConnector& operator=(const QFKAEConnector&) = delete;

  /// Not owned: it outlives the connector, or is reset before it is destroyed.
  void setDelegate(QFKAEConnectorDelegate* delegate) { _delegate = delegate; }

  // Ask the delegate each time; empty and false without a delegate.
  std::string remoteAppBundleIdentifier() const;
  bool remoteAppHasAgentMode() const;
  bool receivesCommands() const;

  /// From now on command events of both forms come here, if the delegate receives commands at all.
  void setupIncomingCommandsReceiver();
  /// The keyed-archive form: takes a message, answers the reply's bytes or nothing.
  std::optional<Data> handleAppleEvent(const Data& message);
  /// The same in the older property-list form.
  std::optional<Data> handleOldServerAppleEvent(const Data& message);
  std::optional<Value> processReceivedCommand(std::optional<std::string_view> command,
                                              std::optional<Value> param1,
                                              std::optional<Value> param2);

  /// Starts the remote program if need be, sends the command and returns the answer. Blocks until
  /// the answer is there or the system's time-out has passed; without `waitForReply` only until the
  /// event is handed over.
  std::optional<Value> sendRemoteCommand(std::string_view command,
                                         std::optional<Value> param1 = std::nullopt,
                                         std::optional<Value> param2 = std::nullopt,
                                         bool waitForReply = true);

  bool isRemoteAppRunning() const;
  void launchRemoteAppAsNeeded();
  /// Whether the remote program runs, or was started in the background.
  bool launchRemoteAppAsAgent();
  /// Starts the remote program with its windows. Does not wait for it.
  void launchRemoteAppWithUI();
  /// The instance that started last; process 0, and a log line, when none runs.
  AppleEventTarget targetDescriptorForBundleID(std::string_view bundleIdentifier) const;

 private:
  std::optional<Value> answerTo(const Value& message);

  AppleEvents& _appleEvents;
  Workspace& _workspace;
  DistributedNotificationCenter& _distributedNotificationCenter;
  QFKAEConnectorDelegate* _delegate = nullptr;
  // Handlers are never removed; this tells them that their connector is gone.
  std::shared_ptr<QFKAEConnector*> _self = std::make_shared<QFKAEConnector*>(this);
};

}  // namespace qf
