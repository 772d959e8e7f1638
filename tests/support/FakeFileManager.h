// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>

#include "host/FileManager.h"
#include "tests/support/Journal.h"

namespace qf {

/// Files in memory. A file can be written only into a folder that was made.
class FakeFileManager : public FileManager {
 public:
  std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const override {
    if (!dataFolder) return std::nullopt;
    return *dataFolder / identifier;
  }
  std::optional<Error> createDirectory(const std::filesystem::path& path) override {
    if (createDirectoryError) return createDirectoryError;
    folders.insert(path);
    return std::nullopt;
  }
  std::optional<Data> contents(const std::filesystem::path& path) const override {
    journal.push_back("read " + path.filename().string());
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return found->second;
  }
  std::optional<Error> write(const std::filesystem::path& path,
                             std::span<const std::uint8_t> data) override {
    journal.push_back("write " + path.filename().string());
    if (writeError) return writeError;
    if (!folders.contains(path.parent_path())) return Error{"no such folder"};
    files[path].assign(data.begin(), data.end());
    ++writes;
    return std::nullopt;
  }

  void put(const std::filesystem::path& path, std::string_view text) {
    files[path].assign(text.begin(), text.end());
  }

  /// Containers lie in here; nothing for a system that gives none.
  std::optional<std::filesystem::path> dataFolder = "/data";
  std::map<std::filesystem::path, Data> files;
  std::set<std::filesystem::path> folders;
  std::optional<Error> createDirectoryError;
  std::optional<Error> writeError;
  int writes = 0;  ///< that succeeded
};

}  // namespace qf
