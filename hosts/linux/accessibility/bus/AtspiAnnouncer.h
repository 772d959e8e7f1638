// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/qt/Announcer.h"

namespace qf {

/// Sends the signal "Announcement" on the accessibility bus, as AT-SPI defines it
/// (org.a11y.atspi.Event.Object); Qt 6.4 has no event for it.
class AtspiAnnouncer final : public Announcer {
 public:
  void announce(QAccessibleInterface& source, const QString& text, bool isUrgent) override;
};

}  // namespace qf
