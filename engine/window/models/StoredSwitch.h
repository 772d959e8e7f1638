// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "foundation/Error.h"

namespace qf {

/// A boolean of a domain of user defaults, "no" until it is set. Keeps nothing: what is read is
/// what is stored.
class StoredSwitch {
 public:
  StoredSwitch(std::string domain, std::string key);

  bool isOn() const;
  /// Fails when the domain's file cannot be written.
  [[nodiscard]] std::optional<Error> setOn(bool isOn) const;

 private:
  std::string _domain;
  std::string _key;
};

}  // namespace qf
