// SPDX-License-Identifier: Apache-2.0
#include "kit/QFAgent.h"

#include <utility>

namespace qf {

void QFAgent::cleanFiles(std::optional<Value> files, std::optional<Value> options) {
  std::optional<Value> remaining;
  if (options && options->dictionary()) {
    Dictionary copy = *options->dictionary();
    copy.remove("");
    remaining = std::move(copy);
  }
  QFKClientRemote::cleanFiles(std::move(files), std::move(remaining));
}

void QFAgent::cleanFile(const std::filesystem::path& file, std::optional<Value> options) {
  cleanFiles(Array{file.native()}, std::move(options));
}

}  // namespace qf
