// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>

#include "foundation/Value.h"

namespace qf {

class FileManager;

/// The dictionary that a property-list file holds. Nothing, and no word about it, when there is no
/// path, the file cannot be read, is not a property list or holds something else.
std::optional<Dictionary> dictionaryWithContentsOfURL(
    const FileManager& fileManager, const std::optional<std::filesystem::path>& url);

}  // namespace qf
