// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/Autostart.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <cstdlib>
#include <sstream>

#include "hosts/linux/desktop/DesktopEntry.h"
#include "hosts/linux/files/PrivateFiles.h"
#include "hosts/linux/files/XdgFolders.h"

namespace qf {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* entryName = "org.quenfold.Menu.desktop";
constexpr const char* execKey = "Exec";
constexpr const char* hiddenKey = "Hidden";
constexpr const char* gnomeKey = "X-GNOME-Autostart-enabled";

std::optional<Lines> linesOf(const fs::path& file) {
  const auto bytes = readRegularFile(file);
  if (!bytes) return std::nullopt;
  std::istringstream text(std::string(bytes->begin(), bytes->end()));
  Lines lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

/// Of the key's line in the entry's main group; where it would have to stand where there is none.
struct Place {
  std::size_t line;
  std::optional<std::string> value;
};

std::string trimmed(const std::string& text) {
  const auto begin = text.find_first_not_of(" \t\r");
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

Place find(const Lines& lines, const std::string& key) {
  bool isInMainGroup = false;
  std::size_t end = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string line = trimmed(lines[i]);
    if (line.starts_with('[')) isInMainGroup = line == "[Desktop Entry]";
    if (!isInMainGroup) continue;
    if (!line.empty()) end = i + 1;
    const auto equals = line.find('=');
    if (equals == std::string::npos || trimmed(line.substr(0, equals)) != key) continue;
    return {i, trimmed(line.substr(equals + 1))};
  }
  return {end, std::nullopt};
}

void set(Lines& lines, const std::string& key, const std::string& value) {
  if (lines.empty()) lines.emplace_back("[Desktop Entry]");
  const Place place = find(lines, key);
  const std::string line = key + '=' + value;
  if (place.value) {
    lines[place.line] = line;
  } else {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.line), line);
  }
}

/// The program of a command line.
bool isThere(const std::string& commandLine) {
  DesktopEntry entry;
  entry.exec = commandLine;
  const auto words = entry.commandLine();
  return !words.empty() && !QStandardPaths::findExecutable(words.front().c_str()).isEmpty();
}

bool starts(const Lines& entry) {
  return find(entry, hiddenKey).value != "true" && find(entry, gnomeKey).value != "false";
}

}  // namespace

Autostart::Places Autostart::usualPlaces(const fs::path& pattern) {
  const auto home = xdgConfigHome();
  Places places{home ? *home / "autostart" / entryName : fs::path(), {}, pattern};
  const char* listed = std::getenv("XDG_CONFIG_DIRS");
  std::istringstream folders(listed && *listed ? listed : "/etc/xdg");
  for (std::string folder; std::getline(folders, folder, ':');) {
    places.systems.push_back(fs::path(folder) / "autostart" / entryName);
  }
  return places;
}

bool Autostart::isOn() const {
  if (const auto own = linesOf(_places.own)) return starts(*own);
  for (const fs::path& system : _places.systems) {
    if (const auto entry = linesOf(system)) return starts(*entry);
  }
  return false;
}

bool Autostart::isSwitchedOff() const {
  const auto own = linesOf(_places.own);
  return own && !starts(*own);
}

std::optional<Error> Autostart::setOn(bool isOn) const {
  if (_places.own.empty()) {
    return Error{QCoreApplication::translate("qf::Autostart",
                                             "There is no home folder that could hold the start at "
                                             "login: see that HOME is set.")
                     .toStdString()};
  }
  const Lines pattern = linesOf(_places.pattern).value_or(Lines());
  Lines entry = linesOf(_places.own).value_or(pattern);
  if (isOn && pattern.empty()) {
    return Error{
        QCoreApplication::translate("qf::Autostart", "%1 is missing: install Quenfold anew.")
            .arg(_places.pattern.empty() ? "autostart.desktop" : _places.pattern.c_str())
            .toStdString()};
  }
  set(entry, hiddenKey, isOn ? "false" : "true");
  if (isOn) {
    set(entry, gnomeKey, "true");
    // The program may lie elsewhere than when the entry was made; a wrapper of the person's stays.
    if (!isThere(find(entry, execKey).value.value_or(""))) {
      set(entry, execKey, find(pattern, execKey).value.value_or(""));
    }
  }
  std::string text;
  for (const std::string& line : entry) text += line + '\n';
  if (auto error = createPrivateFolder(_places.own.parent_path())) return error;
  return replaceFile(_places.own,
                     {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

}  // namespace qf
