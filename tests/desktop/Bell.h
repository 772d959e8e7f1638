// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>

struct xcb_connection_t;

namespace qf::desktop {

/// Hears the X server's bell, whoever rings it.
class Bell {
 public:
  Bell();
  ~Bell();

  /// Waits until the bell rings; false when it stays silent that long.
  bool rings(std::chrono::milliseconds limit);

 private:
  xcb_connection_t* _connection;
};

}  // namespace qf::desktop
