// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/XdgBundle.h"

#include <cstdlib>
#include <system_error>
#include <utility>
#include <vector>

#include "foundation/Log.h"
#include "hosts/linux/files/PrivateFiles.h"

namespace qf {
namespace {

bool isFile(const std::filesystem::path& path) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(path, unknown);
}

// "de_AT.UTF-8@euro" is looked for as "de_AT", then as "de".
std::vector<std::string> languages() {
  std::string locale;
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) continue;
    locale = value;
    break;
  }
  locale = locale.substr(0, locale.find_first_of(".@"));
  if (locale.empty() || locale.find('/') != std::string::npos) return {};
  const auto language = locale.substr(0, locale.find('_'));
  if (language == locale) return {locale};
  return {locale, language};
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
  for (const std::string& language : languages()) {
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
