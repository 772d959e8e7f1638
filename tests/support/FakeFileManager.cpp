// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeFileManager.h"

namespace qf {

std::optional<std::filesystem::path>
FakeFileManager::containerURLForSecurityApplicationGroupIdentifier(
    std::string_view identifier) const {
  if (!dataFolder) return std::nullopt;
  return *dataFolder / identifier;
}

std::optional<Error> FakeFileManager::createDirectory(const std::filesystem::path& path) {
  if (createDirectoryError) return createDirectoryError;
  folders.insert(path);
  return std::nullopt;
}

std::optional<Data> FakeFileManager::contents(const std::filesystem::path& path) const {
  ++reads;
  const auto found = files.find(path);
  if (found == files.end()) return std::nullopt;
  return found->second;
}

std::optional<Error> FakeFileManager::write(const std::filesystem::path& path,
                                            std::span<const std::uint8_t> data) {
  if (writeError) return writeError;
  if (!folders.contains(path.parent_path())) return Error{"no such folder"};
  files[path].assign(data.begin(), data.end());
  ++writes;
  return std::nullopt;
}

void FakeFileManager::put(const std::filesystem::path& path, std::string_view text) {
  files[path].assign(text.begin(), text.end());
}

}  // namespace qf
