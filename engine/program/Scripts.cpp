// SPDX-License-Identifier: Apache-2.0
#include "engine/program/Scripts.h"

#include <iostream>
#include <iterator>

#include "engine/lists/ListData.h"
#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/Cleaning.h"
#include "engine/program/QFFileCleaner.h"
#include "foundation/Log.h"
#include "kit/QFKListFormat.h"

namespace qf {

int listCleaners(const Dictionary& listData, std::ostream& out) {
  const Dictionary* cleaners = listData.dictionary(listKey::tokenInfo);
  if (!cleaners) return 1;
  for (const auto& [token, info] : *cleaners) {
    const auto name = info.dictionary() ? info.dictionary()->string(listKey::name) : std::nullopt;
    out << std::string_view(token) << '\t' << name.value_or(token) << '\n';
  }
  return 0;
}

int cleanStream(const QFCleanerLibrary& library, std::string_view token, const Dictionary& listData,
                std::istream& in, std::ostream& out) {
  const std::string text(std::istreambuf_iterator<char>(in), {});
  const Result<std::string> cleaned = library.clean(token, text);
  if (!cleaned) {
    log(refusalText(cleanerName(listData, token), cleaned.error().localizedDescription));
  }
  out << (cleaned ? *cleaned : text) << std::flush;
  return cleaned && out ? 0 : 1;
}

int cleanFiles(const QFCleanerLibrary& library, const FileManager& fileManager,
               std::string_view token, std::span<const std::string> paths) {
  const QFFileCleaner cleaner(fileManager, library);
  int exitCode = 0;
  for (const std::string& path : paths) {
    if (const auto error = cleaner.clean(path, token)) {
      log("File " + path + " left as it is: " + error->localizedDescription);
      exitCode = 1;
    }
  }
  return exitCode;
}

}  // namespace qf
