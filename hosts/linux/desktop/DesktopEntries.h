// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "hosts/linux/desktop/DesktopEntry.h"

namespace qf {

/// The desktop entries of the installed applications. Main thread. What it has read is kept until a
/// folder changes.
class DesktopEntries {
 public:
  /// An entry in an earlier folder hides the later ones of its name.
  explicit DesktopEntries(std::vector<std::filesystem::path> folders);

  /// The application folders of this program's own installation, of the user, and of the system.
  static std::vector<std::filesystem::path> standardFolders(
      const std::filesystem::path& programFolder);

  std::optional<std::filesystem::path> pathForIdentifier(std::string_view identifier) const;

  /// The application that a window belongs to, told by the two names of its WM_CLASS and its
  /// process's name, any of which may be empty. Null when none fits; valid until the next call.
  const DesktopEntry* matching(std::string_view windowClass, std::string_view windowInstance,
                               std::string_view processName) const;

 private:
  using Times = std::vector<std::filesystem::file_time_type>;

  void refresh() const;

  std::vector<std::filesystem::path> _folders;
  mutable Times _times;
  mutable std::vector<DesktopEntry> _entries;  ///< those with fewer arguments first
};

}  // namespace qf
