// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/XdgFileManager.h"

#include "hosts/linux/files/PrivateFiles.h"
#include "hosts/linux/files/XdgFolders.h"

namespace qf {

std::optional<std::filesystem::path>
XdgFileManager::containerURLForSecurityApplicationGroupIdentifier(
    std::string_view identifier) const {
  const auto dataHome = xdgDataHome();
  if (!dataHome) return std::nullopt;
  return *dataHome / identifier;
}

std::optional<Error> XdgFileManager::createDirectory(const std::filesystem::path& path) {
  return createPrivateFolder(path);
}

std::optional<Data> XdgFileManager::contents(const std::filesystem::path& path) const {
  return readRegularFile(path);
}

std::optional<Error> XdgFileManager::write(const std::filesystem::path& path,
                                           std::span<const std::uint8_t> data) {
  return replaceFile(path, data);
}

}  // namespace qf
