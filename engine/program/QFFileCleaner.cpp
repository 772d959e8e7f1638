// SPDX-License-Identifier: Apache-2.0
#include "engine/program/QFFileCleaner.h"

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/TextEncoding.h"
#include "host/FileManager.h"
#include "hosts/linux/files/PrivateFiles.h"

namespace qf {

QFFileCleaner::QFFileCleaner(const FileManager& fileManager, const QFCleanerLibrary& library)
    : _fileManager(fileManager), _library(library) {}

std::optional<Error> QFFileCleaner::clean(const std::filesystem::path& path, std::string_view token,
                                          std::string_view encoding) const {
  const auto cleaner = [&](std::string_view text) { return _library.clean(token, text); };
  return clean(_fileManager, path, cleaner, encoding);
}

std::optional<Error> QFFileCleaner::clean(const FileManager& fileManager,
                                          const std::filesystem::path& path,
                                          const CleanerFunction& cleaner,
                                          std::string_view encoding) {
  const Result<Data> bytes = contents(fileManager, path);
  if (!bytes) return bytes.error();
  const Result<EncodedText> before = decodeText(*bytes, encoding);
  if (!before) return before.error();
  const Result<std::string> cleaned = cleaner(before->text);
  if (!cleaned) return cleaned.error();
  if (*cleaned == before->text) return std::nullopt;
  const Result<Data> after = encodeText(*cleaned, before->encoding);
  if (!after) return after.error();
  return replaceFile(path, *after);
}

Result<Data> QFFileCleaner::contents(const FileManager& fileManager,
                                     const std::filesystem::path& path) {
  std::optional<Data> bytes = fileManager.contents(path);
  if (!bytes) return Error{"it cannot be read"};
  return *std::move(bytes);
}

}  // namespace qf
