// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include "host/FileManager.h"

namespace qf {

/// Files as another manager has them, for a caller whose failed writes go to the log alone: keeps
/// the first failure until it is taken.
class ReportingFileManager final : public FileManager {
 public:
  explicit ReportingFileManager(FileManager& files) : _files(files) {}

  std::optional<Error> takeFailure() { return std::exchange(_failure, std::nullopt); }

  std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const override {
    return _files.containerURLForSecurityApplicationGroupIdentifier(identifier);
  }
  [[nodiscard]] std::optional<Error> createDirectory(const std::filesystem::path& path) override {
    return kept(_files.createDirectory(path));
  }
  std::optional<Data> contents(const std::filesystem::path& path) const override {
    return _files.contents(path);
  }
  [[nodiscard]] std::optional<Error> write(const std::filesystem::path& path,
                                           std::span<const std::uint8_t> data) override {
    return kept(_files.write(path, data));
  }

 private:
  [[nodiscard]] std::optional<Error> kept(std::optional<Error> error) {
    if (error && !_failure) _failure = error;
    return error;
  }

  FileManager& _files;
  std::optional<Error> _failure;
};

}  // namespace qf
