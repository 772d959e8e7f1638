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
  const std::optional<Data> contents = _fileManager.contents(path);
  if (!contents) return Error{"it cannot be read"};
  const Result<EncodedText> before = decodeText(*contents, encoding);
  if (!before) return before.error();
  const Result<std::string> cleaned = _library.clean(token, before->text);
  if (!cleaned) return cleaned.error();
  if (*cleaned == before->text) return std::nullopt;
  const Result<Data> after = encodeText(*cleaned, before->encoding);
  if (!after) return after.error();
  return replaceFile(path, *after);
}

}  // namespace qf
