// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// What a step of a reader returns after it has stored its error: false or a null pointer.
struct Failure {
  operator bool() const { return false; }
  template <class T>
  operator T*() const {
    return nullptr;
  }
};

}  // namespace qf
