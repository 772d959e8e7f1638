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

  /// Told at the end of a request how it ended, unless nothing was tried.
  void setHandler(std::function<void(const Availability&)> handler) {
    _handler = std::move(handler);
  }

  /// `why` ends a sentence that begins with "because".
  void note(std::int32_t processIdentifier, const std::string& why);
  /// The text was cleaned and not pasted; `why` as above.
  void noteUnpasted(std::int32_t processIdentifier, const std::string& why);
  /// The request goes on after all.
  void clear();
  /// The end of the request: logs and tells how it ended. What failed first and then worked is not
  /// mentioned.
  void tell();

  Availability availability() const;
  /// What a person calls the application; empty where it is not known.
  std::string nameOf(std::int32_t processIdentifier) const;

 private:
  const Workspace& _workspace;
  std::function<void(const Availability&)> _handler;
  std::string _sentence;
  bool _isUntold = false;
};

}  // namespace qf
