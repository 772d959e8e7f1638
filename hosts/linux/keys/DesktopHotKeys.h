// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>

#include "host/SymbolicHotKeys.h"
#include "hosts/linux/keys/KeyboardService.h"

namespace qf {

/// The shortcuts of the desktops that run here and publish them.
class DesktopHotKeys : public SymbolicHotKeys {
 public:
  /// The service outlives the list.
  DesktopHotKeys(QDBusConnection bus, const KeyboardService& keyboard);

  Availability availability() const override;
  std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() const override;

 private:
  QDBusConnection _bus;
  const KeyboardService& _keyboard;
};

}  // namespace qf
