// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

class Sound {
 public:
  virtual ~Sound() = default;
  /// The system's alert sound. Returns at once. Main thread.
  virtual void beep() = 0;
};

}  // namespace qf
