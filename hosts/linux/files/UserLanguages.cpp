// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/UserLanguages.h"

#include <cstdlib>
#include <sstream>

namespace qf {
namespace {

std::string valueOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? value : "";
}

/// Of "de_AT.UTF-8@euro": "de_AT".
std::string withoutEncoding(const std::string& locale) {
  return locale.substr(0, locale.find_first_of(".@"));
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
    const std::string language = entry.substr(0, entry.find('_'));
    if (language == "en") break;
    languages.push_back(entry);
    if (language != entry) languages.push_back(language);
  }
  return languages;
}

}  // namespace qf
