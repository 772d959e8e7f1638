// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>

namespace qf {

/// Whether a service is there, and if not, why: in words a person can act on, such as "no tray on
/// this desktop". The core goes on in its documented silence; the reason is for the log, the status
/// interface and the tool tip of the status item.
struct Availability {
  bool isAvailable = true;
  std::string reason;

  static Availability available() { return {}; }
  static Availability unavailable(std::string reason) { return {false, std::move(reason)}; }
};

}  // namespace qf
