// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>

#include "foundation/Value.h"

namespace qf {

class FileManager;

/// The dictionary of a property-list file. Nothing, without a log line, for an empty path, a file
/// that cannot be read, is no property list, or has another root.
std::optional<Dictionary> dictionaryWithContentsOfURL(
    const FileManager& fileManager, const std::optional<std::filesystem::path>& url);

}  // namespace qf
