// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/ProcessTable.h"

#include <signal.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace qf {
namespace {

/// What the kernel keeps of a name at most.
constexpr std::size_t longestShortName = 15;

}  // namespace

bool processExists(std::int32_t processIdentifier) {
  return processIdentifier > 0 && (kill(processIdentifier, 0) == 0 || errno == EPERM);
}

std::string processName(std::int32_t processIdentifier) {
  const std::filesystem::path folder = "/proc/" + std::to_string(processIdentifier);
  std::string shortName;
  std::getline(std::ifstream(folder / "comm"), shortName);
  if (shortName.size() < longestShortName) return shortName;

  // Cut off: the whole name is the program's, or for a script its interpreter's first argument.
  std::ifstream arguments(folder / "cmdline", std::ios::binary);
  std::string argument;
  for (int i = 0; i < 2 && std::getline(arguments, argument, '\0'); ++i) {
    std::string name = std::filesystem::path(argument).filename();
    if (name.starts_with(shortName)) return name;
  }
  return shortName;
}

}  // namespace qf
