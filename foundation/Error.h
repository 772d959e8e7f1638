// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace qf {

/// Why an operation failed, in words for a log line or for a person.
struct Error {
  std::string localizedDescription;
};

}  // namespace qf
