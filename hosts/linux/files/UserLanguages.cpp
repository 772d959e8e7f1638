// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/UserLanguages.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace qf {
namespace {

std::string valueOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? value : "";
}

/// Of "de_AT.UTF-8@euro": "de_AT@euro".
std::string withoutEncoding(const std::string& locale) {
  const std::size_t dot = locale.find('.');
  if (dot == std::string::npos) return locale;
  const std::size_t at = locale.find('@', dot);
  return locale.substr(0, dot) + (at == std::string::npos ? "" : locale.substr(at));
}

/// What a locale stands for, the most particular first, as gettext looks for it.
std::vector<std::string> languagesOf(const std::string& locale) {
  const std::string territory = locale.substr(0, locale.find('@'));
  const std::string variant = locale.substr(territory.size());
  const std::string language = territory.substr(0, territory.find('_'));
  std::vector<std::string> languages;
  for (const std::string& name : {territory + variant, territory, language + variant, language}) {
    if (std::ranges::find(languages, name) == languages.end()) languages.push_back(name);
  }
  return languages;
}

std::string localeOfMessages() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (const std::string value = valueOf(variable); !value.empty()) return withoutEncoding(value);
  }
  return "";
}

}  // namespace

std::vector<std::string> userLanguages() {
  const std::string locale = localeOfMessages();
  if (locale.empty() || locale == "C" || locale == "POSIX") return {};
  std::istringstream wanted(valueOf("LANGUAGE") + ':' + locale);
  std::vector<std::string> languages;
  for (std::string entry; std::getline(wanted, entry, ':');) {
    entry = withoutEncoding(entry);
    // A path would lead out of the resources.
    if (entry.empty() || entry.find('/') != std::string::npos) continue;
    const auto known = languagesOf(entry);
    if (known.back() == "en") break;
    languages.insert(languages.end(), known.begin(), known.end());
  }
  return languages;
}

}  // namespace qf
