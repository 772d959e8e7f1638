// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "foundation/Error.h"

namespace qf {

/// Replaces the file's contents so that whoever reads sees the old or the new whole, never a part,
/// and a failure leaves the old. Permissions stay; a symbolic link stays one and its target is
/// replaced; other hard links keep the old contents. Any thread.
std::optional<Error> saveFile(const std::filesystem::path& path,
                              std::span<const std::uint8_t> contents);

}  // namespace qf
