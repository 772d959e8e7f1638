// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

#include "kit/QFKClientRemote.h"

namespace qf {

/// A client that cleans files.
class QFAgent : public QFKClientRemote {
 public:
  static QFKClientBase& sharedClient() { return sharedClientOfClass<QFAgent>(); }
  using QFKClientRemote::QFKClientRemote;

  /// Omits an option with an empty key.
  void cleanFiles(std::optional<Value> files, std::optional<Value> options) override;
  void cleanFile(const std::filesystem::path& file, std::optional<Value> options);
};

}  // namespace qf
