// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/XdgFolders.h"

#include <cstdlib>

namespace qf {
namespace {

std::optional<std::filesystem::path> absolutePathIn(const char* variable) {
  const char* value = std::getenv(variable);
  if (!value || std::filesystem::path(value).is_relative()) return std::nullopt;
  return value;
}

std::optional<std::filesystem::path> folder(const char* variable, const char* belowHome) {
  if (auto path = absolutePathIn(variable)) return path;
  const auto home = absolutePathIn("HOME");
  if (!home) return std::nullopt;
  return *home / belowHome;
}

}  // namespace

std::optional<std::filesystem::path> xdgDataHome() {
  return folder("XDG_DATA_HOME", ".local/share");
}

std::optional<std::filesystem::path> xdgConfigHome() {
  return folder("XDG_CONFIG_HOME", ".config");
}

std::optional<std::filesystem::path> xdgStateHome() {
  return folder("XDG_STATE_HOME", ".local/state");
}

}  // namespace qf
