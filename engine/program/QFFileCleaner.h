// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "engine/cleaners/Cleaner.h"
#include "foundation/Error.h"
#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

class FileManager;
class QFCleanerLibrary;

/// Cleans text files in place. Any thread.
class QFFileCleaner {
 public:
  /// Both must outlive the object.
  QFFileCleaner(const FileManager& fileManager, const QFCleanerLibrary& library);

  /// Replaces the file's text by the cleaned one in the file's own encoding (TextEncoding.h), all
  /// at once; permissions stay. An error means that the file is as it was, and says why. A text
  /// that comes out the same is not written again.
  [[nodiscard]] std::optional<Error> clean(const std::filesystem::path& path,
                                           std::string_view token,
                                           std::string_view encoding = {}) const;
  /// The same with any function.
  [[nodiscard]] static std::optional<Error> clean(const FileManager& fileManager,
                                                  const std::filesystem::path& path,
                                                  const CleanerFunction& cleaner,
                                                  std::string_view encoding);

  static Result<Data> contents(const FileManager& fileManager, const std::filesystem::path& path);

 private:
  const FileManager& _fileManager;
  const QFCleanerLibrary& _library;
};

}  // namespace qf
