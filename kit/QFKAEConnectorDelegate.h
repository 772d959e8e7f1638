// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

/// What the connector needs of its process. Main thread.
class QFKAEConnectorDelegate {
 public:
  virtual ~QFKAEConnectorDelegate() = default;

  /// The bundle identifier of the program at the other end.
  virtual std::string remoteAppBundleIdentifier() const = 0;
  /// Whether that program can be started in the background, with "--agent".
  virtual bool remoteAppHasAgentMode() const = 0;
  /// Whether this process takes command events.
  virtual bool receivesCommands() const = 0;

  /// Executes an incoming command and returns its result. Parameters that the sender left out are
  /// empty.
  virtual std::optional<Value> processReceivedCommand(std::optional<std::string_view> command,
                                                      std::optional<Value> param1,
                                                      std::optional<Value> param2) = 0;
};

}  // namespace qf
