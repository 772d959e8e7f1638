// SPDX-License-Identifier: Apache-2.0
#include "engine/AtomicFile.h"

#include <QFile>
#include <QSaveFile>

namespace qf {

std::optional<Error> saveFile(const std::filesystem::path& path,
                              std::span<const std::uint8_t> contents) {
  QSaveFile file(QFile::decodeName(path.c_str()));
  const auto size = static_cast<qint64>(contents.size());
  if (!file.open(QIODevice::WriteOnly) ||
      file.write(reinterpret_cast<const char*>(contents.data()), size) != size || !file.commit()) {
    return Error{file.errorString().toStdString()};
  }
  return std::nullopt;
}

}  // namespace qf
