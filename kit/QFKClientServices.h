// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

class AppleEvents;
class Bundle;
class DistributedNotificationCenter;
class FileManager;
class Workspace;

/// What a client needs of the host. All outlive it.
struct QFKClientServices {
  AppleEvents& appleEvents;
  const Bundle& bundle;
  DistributedNotificationCenter& distributedNotificationCenter;
  FileManager& fileManager;
  Workspace& workspace;
};

}  // namespace qf
