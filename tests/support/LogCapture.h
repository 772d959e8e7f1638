// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/Log.h"

namespace qf {

/// Collects the log lines of its lifetime, in place of standard error. One at a time.
class LogCapture {
 public:
  LogCapture() {
    setLogSink([this](std::string_view line) { lines.emplace_back(line); });
  }
  ~LogCapture() { setLogSink({}); }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  std::vector<std::string> lines;
};

}  // namespace qf
