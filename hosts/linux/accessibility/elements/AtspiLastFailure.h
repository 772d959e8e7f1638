// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "host/Availability.h"

namespace qf {

class Workspace;

/// Why the text of the application that was tried last cannot be cleaned, if it cannot. Main
/// thread.
class AtspiLastFailure {
 public:
  /// `workspace` outlives this and gives applications their names.
  explicit AtspiLastFailure(const Workspace& workspace) : _workspace(workspace) {}

  /// Who is told at a road's end how it ended, unless nothing was tried.
  void setHandler(std::function<void(const Availability&)> handler) {
    _handler = std::move(handler);
  }

  /// `why` ends a sentence that begins with "because". Logged, unless it is what was said last.
  void note(std::int32_t processIdentifier, const std::string& why);
  /// The road goes on after all.
  void clear();
  /// Tells what the last of these said, if there were any since the last telling.
  void tell();

  Availability availability() const;

 private:
  const Workspace& _workspace;
  std::function<void(const Availability&)> _handler;
  std::string _sentence;
  bool _isUntold = false;
};

}  // namespace qf
