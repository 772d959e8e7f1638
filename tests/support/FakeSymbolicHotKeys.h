// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/SymbolicHotKeys.h"

namespace qf {

class FakeSymbolicHotKeys : public SymbolicHotKeys {
 public:
  Availability availability() const override { return Availability::available(); }
  std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() const override { return list; }

  std::optional<std::vector<SymbolicHotKey>> list;
};

}  // namespace qf
