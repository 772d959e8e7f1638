// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "host/FileManager.h"

namespace qf {

/// A folder of its own on the disk, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "engine.XXXXXX").string();
    path = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path put(std::string_view name, std::string_view contents) const {
    std::ofstream(path / name, std::ios::binary) << contents;
    return path / name;
  }
  static std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::filesystem::path path;
};

/// Real files, containers in that folder.
class FolderFileManager : public FileManager {
 public:
  explicit FolderFileManager(std::filesystem::path folder) : _folder(std::move(folder)) {}

  std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const override {
    return _folder / identifier;
  }
  std::optional<Error> createDirectory(const std::filesystem::path& path) override {
    std::filesystem::create_directories(path);
    return std::nullopt;
  }
  std::optional<Data> contents(const std::filesystem::path& path) const override {
    if (!std::filesystem::is_regular_file(path)) return std::nullopt;
    const std::string bytes = TemporaryFolder::read(path);
    return Data(bytes.begin(), bytes.end());
  }
  std::optional<Error> write(const std::filesystem::path& path,
                             std::span<const std::uint8_t> data) override {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data.data()),
               static_cast<std::streamsize>(data.size()));
    return std::nullopt;
  }

 private:
  std::filesystem::path _folder;
};

}  // namespace qf
