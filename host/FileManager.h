// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "foundation/Error.h"
#include "foundation/Value.h"

namespace qf {

/// Files and the folders that the platform assigns. Any thread; blocks as the file system does.
class FileManager {
 public:
  virtual ~FileManager() = default;

  /// The folder that all programs of the application group share, for this user. It need not exist
  /// yet. Empty when the platform gives none.
  virtual std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const = 0;

  /// Makes the folder and those above it; an existing folder is a success.
  virtual std::optional<Error> createDirectory(const std::filesystem::path& path) = 0;

  /// The whole file, or nothing when it cannot be read (missing, not permitted, not a regular file,
  /// larger than 256 MiB).
  virtual std::optional<Data> contents(const std::filesystem::path& path) const = 0;

  /// Replaces the file's contents, atomically where possible: readers see the old or the new
  /// contents, and a failure keeps the old.
  virtual std::optional<Error> write(const std::filesystem::path& path,
                                     std::span<const std::uint8_t> data) = 0;
};

}  // namespace qf
