// SPDX-License-Identifier: Apache-2.0
#include "kit/DictionaryFile.h"

#include "foundation/PropertyList.h"
#include "host/FileManager.h"

namespace qf {

std::optional<Dictionary> dictionaryWithContentsOfURL(
    const FileManager& fileManager, const std::optional<std::filesystem::path>& url) {
  if (!url) return std::nullopt;
  const auto data = fileManager.contents(*url);
  if (!data) return std::nullopt;
  const auto content = readPropertyList(*data);
  if (!content || !content->dictionary()) return std::nullopt;
  return *content->dictionary();
}

}  // namespace qf
