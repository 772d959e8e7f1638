// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/XdgBundle.h"

#include <system_error>
#include <utility>

#include "foundation/Log.h"
#include "hosts/linux/files/PrivateFiles.h"
#include "hosts/linux/files/UserLanguages.h"

namespace qf {
namespace {

bool isFile(const std::filesystem::path& path) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(path, unknown);
}

}  // namespace

XdgBundle::XdgBundle(std::filesystem::path resources)
    : _resources(std::move(resources)), _strings(readStrings()) {}

std::filesystem::path XdgBundle::resourcesFolder() {
  std::error_code unknown;
  const auto executable = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return executable.parent_path().parent_path() / "share/quenfold";
}

std::optional<std::filesystem::path> XdgBundle::resource(std::string_view name,
                                                         std::string_view extension) const {
  auto path = _resources / (std::string(name) + "." + std::string(extension));
  if (!isFile(path)) return std::nullopt;
  return path;
}

std::optional<Image> XdgBundle::imageNamed(std::string_view name) const {
  for (const char* extension : {".svg", ".png"}) {
    auto path = _resources / "icons" / (std::string(name) + extension);
    if (isFile(path)) return Image{std::string(name), std::move(path)};
  }
  return std::nullopt;
}

StringTable XdgBundle::readStrings() const {
  for (const std::string& language : userLanguages()) {
    const auto path = _resources / (language + ".lproj") / "Localizable.strings";
    const auto bytes = readRegularFile(path);
    if (!bytes) continue;
    auto table = StringTable::read(*bytes);
    if (table) return *std::move(table);
    log("Error reading " + path.string() + " : " + table.error().localizedDescription);
  }
  return {};
}

}  // namespace qf
