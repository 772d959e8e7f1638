// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qf {

/// What the palette needs of the status menu. Main thread.
class GlobalMenuControl {
 public:
  virtual ~GlobalMenuControl() = default;
  virtual std::optional<std::string> currentGroup() const = 0;
  virtual void changeGroupTo(const std::string& group) = 0;
  virtual void applyCleaner(const std::string& token, std::uint64_t modifiers) = 0;
};

}  // namespace qf
