// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/QFKClientRemote.h"

namespace qf {

/// The agent's client.
class QFMenuClient : public QFKClientRemote {
 public:
  static QFKClientBase& sharedClient() { return sharedClientOfClass<QFMenuClient>(); }
  using QFKClientRemote::QFKClientRemote;
};

}  // namespace qf
