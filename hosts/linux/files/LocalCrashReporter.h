// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/CrashReporter.h"
#include "hosts/linux/files/XdgFolders.h"

namespace qf {

/// Writes "crash-<program>-<UTC time>-<process>.txt" into "quenfold" in the user's state folder and
/// keeps the ten newest reports there. A crash for want of stack is reported on the thread that
/// called `start` only: the others have no second stack. One for a process.
class LocalCrashReporter : public CrashReporter {
 public:
  LocalCrashReporter(std::string program, std::string version,
                     std::optional<std::filesystem::path> stateHome = xdgStateHome());

  /// Where the folder cannot be made, that is logged, and reports go to standard error alone.
  void start() override;

 private:
  std::string _program;
  std::string _version;
  std::optional<std::filesystem::path> _folder;
};

}  // namespace qf
