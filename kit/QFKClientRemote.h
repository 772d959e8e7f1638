// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/QFKClientBase.h"

namespace qf {

/// A client of an engine in another process: reads the files that they share, and takes commands.
class QFKClientRemote : public QFKClientBase {
 public:
  static QFKClientBase& sharedClient() { return sharedClientOfClass<QFKClientRemote>(); }
  using QFKClientBase::QFKClientBase;

  void prepareCustomOptions() override;
  std::optional<Dictionary> readListData() override;
  Dictionary readQFMenuSettings() override;
};

}  // namespace qf
