// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace qf {

class FileManager;

/// The paths of the files that agent and engine share. Every call asks the system again. All
/// results are empty when the system has no folder for the application group. Any thread.
class QFKSharedContainerURL {
 public:
  using URL = std::optional<std::filesystem::path>;

  QFKSharedContainerURL() = delete;

  static URL baseContainerURL(const FileManager& fileManager);
  /// The "Data" folder, created if need be. A failure to create it is logged; the result is the
  /// same.
  static URL containerURL(FileManager& fileManager);
  static URL containerURLForFile(FileManager& fileManager, std::string_view fileName);
  static URL QFKMenuSettingsURL(FileManager& fileManager);
  static URL QFKGroupsListURL(FileManager& fileManager);
};

}  // namespace qf
