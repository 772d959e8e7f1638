// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace qf::desktop {

/// What a process holds at this moment, of everything that a leak would add to.
struct ProcessUsage {
  qint64 residentKilobytes = 0;
  qint64 descriptors = 0;
  qint64 xResources = 0;  ///< of all its connections to the X server
  qint64 matchRules = 0;  ///< on the session bus and the accessibility bus

  static ProcessUsage of(qint64 processIdentifier);

  /// What has grown beyond the noise of a working program, in words; empty for nothing.
  QString growthSince(const ProcessUsage& earlier) const;
  QString text() const;
};

}  // namespace qf::desktop
