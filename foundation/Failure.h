// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// What a reader's step returns after it has kept its error: false, or a null pointer.
struct Failure {
  operator bool() const { return false; }
  template <class T>
  operator T*() const {
    return nullptr;
  }
};

}  // namespace qf
