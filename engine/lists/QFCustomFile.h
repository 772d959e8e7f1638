// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>

#include "engine/lists/CustomLists.h"
#include "engine/lists/QFCleanerLibrary.h"
#include "foundation/Error.h"
#include "foundation/Result.h"

namespace qf {

class FileManager;

/// The file of a person's own cleaners and groups; docs/engine.md has its form. Keeps nothing: each
/// call reads it anew. Main thread.
class QFCustomFile {
 public:
  /// The manager must outlive the object. An empty path is a file that is never there.
  QFCustomFile(std::filesystem::path path, const FileManager& fileManager);

  const std::filesystem::path& path() const { return _path; }

  /// A missing file holds nothing. Fails, saying where, when the file is no JSON at all.
  Result<CustomLists> read(const QFCleanerLibrary::Cleaners& builtInCleaners) const;

  // Each changes of that one entry what differs from what is read there, and writes the file, all
  // at once. Everything else in it stays, what could not be read included. A file that is no JSON
  // is not written, and the error says so.

  /// In the place of the cleaner of that token, or behind the last.
  [[nodiscard]] std::optional<Error> storeCleaner(const CustomCleaner& cleaner);
  [[nodiscard]] std::optional<Error> removeCleaner(std::string_view token);
  /// In the place of the group of the former name (where none is given: of its name), or behind the
  /// last. What the file holds among its entries that is none stays, behind the others.
  [[nodiscard]] std::optional<Error> storeGroup(const CustomGroup& group,
                                                std::string_view formerName = {});
  [[nodiscard]] std::optional<Error> removeGroup(std::string_view name);
  /// To just before the other group; to the end where there is none of that name.
  [[nodiscard]] std::optional<Error> moveGroup(std::string_view name, std::string_view before);

 private:
  using Document = nlohmann::ordered_json;

  Result<Document> document() const;
  [[nodiscard]] std::optional<Error> edit(const std::function<void(Document&)>& change);

  std::filesystem::path _path;
  const FileManager& _fileManager;
};

}  // namespace qf
