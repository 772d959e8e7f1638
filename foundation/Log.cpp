// SPDX-License-Identifier: Apache-2.0
#include "foundation/Log.h"

#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

#include "foundation/Text.h"

namespace qf {
namespace {

constexpr std::size_t longestLine = 4096;

std::mutex& sinkMutex() {
  static std::mutex mutex;
  return mutex;
}

LogSink& currentSink() {
  static LogSink sink;
  return sink;
}

}  // namespace

void log(std::string_view line) {
  const std::string shortLine = shortened(line, longestLine);
  const std::lock_guard lock(sinkMutex());
  if (currentSink()) {
    currentSink()(shortLine);
    return;
  }
  // One write a line, so that lines of several threads and processes don't mix.
  const std::string text = shortLine + '\n';
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void setLogSink(LogSink sink) {
  const std::lock_guard lock(sinkMutex());
  currentSink() = std::move(sink);
}

}  // namespace qf
