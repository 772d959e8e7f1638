// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// How one application presents itself to the desktop, by the Desktop Entry standard 1.5.
struct DesktopEntry {
  std::filesystem::path path;
  std::string identifier;  ///< the file's name without ".desktop"
  std::string name;        ///< in the user's language where it is given
  std::string startupWMClass;
  std::string exec;
  std::string tryExec;
  std::string workingFolder;
  bool isDeleted = false;  ///< hides the entries of its name in the folders behind

  /// Nothing when the file cannot be read, is larger than 1 MiB, or holds no application.
  static std::optional<DesktopEntry> read(const std::filesystem::path& path);

  /// The same from the file's text.
  static std::optional<DesktopEntry> parse(std::string_view text,
                                           const std::filesystem::path& path);

  /// The program and its arguments from `exec`, its field codes dropped. Empty when the line is
  /// malformed.
  std::vector<std::string> commandLine() const;
};

}  // namespace qf
