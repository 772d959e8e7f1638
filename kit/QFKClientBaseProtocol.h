// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "foundation/Value.h"

namespace qf {

/// The commands between agent and engine. Parameters may be of any kind, and are empty when the
/// sender left them out.
class QFKClientBaseProtocol {
 public:
  virtual ~QFKClientBaseProtocol() = default;

  virtual void quitEngine() = 0;
  virtual void resetEngine() = 0;
  virtual Dictionary listData() const = 0;
  virtual Dictionary menuSettings() const = 0;
  virtual void launchQuenfoldApp() = 0;
  virtual void showQuenfoldPreferences() = 0;
  /// Takes a pasteboard's name and a token.
  virtual void cleanPasteboard(std::optional<Value> pasteboardName,
                               std::optional<Value> cleaner) = 0;
  /// Takes an array of paths and a dictionary, "cleanerName" in it being the token.
  virtual void cleanFiles(std::optional<Value> files, std::optional<Value> options) = 0;
  virtual const std::optional<std::vector<std::string>>& textEncodingList() const = 0;
};

}  // namespace qf
