// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "foundation/Error.h"
#include "hosts/linux/desktop/DesktopEntry.h"

namespace qf {

/// Starts the program of a desktop entry: in a session of its own, with nothing on its standard
/// input, and never waited for as a child. Main thread.
class ApplicationLauncher {
 public:
  /// `programFolder`: where this program lies; programs of its own installation are looked for
  /// there first.
  explicit ApplicationLauncher(std::filesystem::path programFolder);

  /// With `hasAppeared` it blocks until that is true, the program has ended or the limit has
  /// passed; the latter two are failures. Without, it returns once the program is started.
  std::optional<Error> launch(const DesktopEntry& entry, const std::vector<std::string>& arguments,
                              const std::function<bool()>& hasAppeared,
                              std::chrono::milliseconds limit) const;

 private:
  std::string findProgram(const DesktopEntry& entry, const std::string& name) const;

  std::filesystem::path _programFolder;
};

}  // namespace qf
