// SPDX-License-Identifier: Apache-2.0
#include "foundation/Log.h"

#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

namespace qf {
namespace {

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
  const std::lock_guard lock(sinkMutex());
  if (currentSink()) {
    currentSink()(line);
    return;
  }
  // One write a line, so that lines of several threads and processes don't mix.
  const std::string text = std::string(line) + '\n';
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void setLogSink(LogSink sink) {
  const std::lock_guard lock(sinkMutex());
  currentSink() = std::move(sink);
}

}  // namespace qf
