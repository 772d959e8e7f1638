// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/DesktopEntries.h"

#include <QStandardPaths>
#include <algorithm>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "foundation/Text.h"

namespace qf {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostEntries = 8192;

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return lowercased(a) == lowercased(b);
}

std::string_view lastComponent(std::string_view identifier) {
  return identifier.substr(identifier.rfind('.') + 1);
}

}  // namespace

DesktopEntries::DesktopEntries(std::vector<fs::path> folders) : _folders(std::move(folders)) {}

std::vector<fs::path> DesktopEntries::standardFolders(const fs::path& programFolder) {
  std::vector<fs::path> folders{(programFolder / "../share/applications").lexically_normal()};
  for (const QString& folder :
       QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
    folders.emplace_back(folder.toStdString());
  return folders;
}

std::optional<fs::path> DesktopEntries::pathForIdentifier(std::string_view identifier) const {
  if (identifier.empty() || identifier.find('/') != std::string_view::npos) return std::nullopt;
  for (const fs::path& folder : _folders) {
    const std::optional<DesktopEntry> entry =
        DesktopEntry::read(folder / (std::string(identifier) + ".desktop"));
    if (!entry) continue;
    if (entry->isDeleted) return std::nullopt;
    return entry->path;
  }
  return std::nullopt;
}

const DesktopEntry* DesktopEntries::matching(std::string_view windowClass,
                                             std::string_view windowInstance,
                                             std::string_view processName) const {
  refresh();
  const auto find = [this](auto fits) {
    const auto found = std::find_if(_entries.begin(), _entries.end(), fits);
    return found == _entries.end() ? nullptr : &*found;
  };
  // From the surest sign to the weakest.
  for (const std::string_view name : {windowClass, windowInstance}) {
    if (name.empty()) continue;
    if (const auto* entry = find([&](const auto& e) { return e.startupWMClass == name; }))
      return entry;
  }
  for (const std::string_view name : {windowClass, windowInstance, processName}) {
    if (name.empty()) continue;
    if (const auto* entry = find([&](const auto& e) {
          return equalsIgnoringCase(e.identifier, name) ||
                 equalsIgnoringCase(lastComponent(e.identifier), name);
        }))
      return entry;
  }
  if (processName.empty()) return nullptr;
  return find([&](const auto& e) {
    const std::vector<std::string> line = e.commandLine();
    return !line.empty() && fs::path(line.front()).filename() == processName;
  });
}

void DesktopEntries::refresh() const {
  Times times;
  std::error_code error;
  for (const fs::path& folder : _folders) times.push_back(fs::last_write_time(folder, error));
  if (times == _times) return;
  _times = std::move(times);

  _entries.clear();
  std::set<std::string> seen;
  for (const fs::path& folder : _folders) {
    for (fs::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
      if (seen.size() >= mostEntries || file->path().extension() != ".desktop") continue;
      if (!seen.insert(file->path().filename()).second) continue;
      std::optional<DesktopEntry> entry = DesktopEntry::read(file->path());
      if (entry && !entry->isDeleted) _entries.push_back(*std::move(entry));
    }
  }
  // Of several entries of one program the plain start stands for it, not its special modes.
  std::stable_sort(_entries.begin(), _entries.end(), [](const auto& a, const auto& b) {
    return a.commandLine().size() < b.commandLine().size();
  });
}

}  // namespace qf
