// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace qf {

class FileManager;

/// Where the files lie that agent and engine share. Every call asks the system anew. All results
/// are empty when the system gives the application group no folder. Any thread.
class QFKSharedContainerURL {
 public:
  using URL = std::optional<std::filesystem::path>;

  QFKSharedContainerURL() = delete;

  static URL baseContainerURL(const FileManager& fileManager);
  /// The "Data" folder, made if need be; a failure to make it is logged, and the answer the same.
  static URL containerURL(FileManager& fileManager);
  static URL containerURLForFile(FileManager& fileManager, std::string_view fileName);
  static URL QFKMenuSettingsURL(FileManager& fileManager);
  static URL QFKGroupsListURL(FileManager& fileManager);
};

}  // namespace qf
