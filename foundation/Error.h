// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace qf {

/// Why an operation failed, in words that can stand in a log line or before a person.
struct Error {
  std::string localizedDescription;
};

}  // namespace qf
