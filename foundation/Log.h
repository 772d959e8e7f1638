// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string_view>

namespace qf {

/// Writes one line to the system log: standard error, which the desktop's session keeps;
/// of a long line, which may come of what another program sent, the first 4 KiB. Any thread.
void log(std::string_view line);

/// Redirects the lines, for tests; an empty function restores standard error.
using LogSink = std::function<void(std::string_view line)>;
void setLogSink(LogSink sink);

}  // namespace qf
