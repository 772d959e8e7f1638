// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace qf {

/// An empty home folder, the only one that the test sees; gone with the object.
class TemporaryHome {
 public:
  TemporaryHome() {
    std::string pattern = std::filesystem::temp_directory_path() / "quenfold-files.XXXXXX";
    _path = mkdtemp(pattern.data());
    setenv("HOME", _path.c_str(), 1);
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) unsetenv(name);
  }
  ~TemporaryHome() { std::filesystem::remove_all(_path); }
  TemporaryHome(const TemporaryHome&) = delete;
  TemporaryHome& operator=(const TemporaryHome&) = delete;

  const std::filesystem::path& path() const { return _path; }
  std::filesystem::path operator/(const std::filesystem::path& below) const {
    return _path / below;
  }

  static std::string text(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// Answers the file.
  static std::filesystem::path write(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file;
  }
  static unsigned permissions(const std::filesystem::path& file) {
    return static_cast<unsigned>(std::filesystem::status(file).permissions());
  }

 private:
  std::filesystem::path _path;
};

}  // namespace qf
