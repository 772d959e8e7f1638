// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>

#include "host/FileManager.h"

namespace qf {

/// Files in memory. A file can be written only into a folder that was made.
class FakeFileManager : public FileManager {
 public:
  std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const override;
  std::optional<Error> createDirectory(const std::filesystem::path& path) override;
  std::optional<Data> contents(const std::filesystem::path& path) const override;
  std::optional<Error> write(const std::filesystem::path& path,
                             std::span<const std::uint8_t> data) override;

  void put(const std::filesystem::path& path, std::string_view text);

  /// Containers lie in here; nothing for a system that gives none.
  std::optional<std::filesystem::path> dataFolder = "/data";
  std::map<std::filesystem::path, Data> files;
  std::set<std::filesystem::path> folders;
  std::optional<Error> createDirectoryError;
  std::optional<Error> writeError;
  int writes = 0;         ///< that succeeded
  mutable int reads = 0;  ///< successful or not
};

}  // namespace qf
