// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "foundation/Error.h"
#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

// Files and folders of one user: what is made new is for nobody else's eyes. Any thread.

/// Makes the folder and those above it.
std::optional<Error> createPrivateFolder(const std::filesystem::path& path);

/// The whole file; nothing when it is missing, not permitted, no regular file, or above 256 MiB.
std::optional<Data> readRegularFile(const std::filesystem::path& path);

/// Puts a new file in the place of the old one (of the file behind it where it is a link), with the
/// permissions that one had: whoever reads meanwhile sees the one or the other whole, and on a full
/// disk the old one stays.
std::optional<Error> replaceFile(const std::filesystem::path& path,
                                 std::span<const std::uint8_t> bytes);

/// Gives a file that cannot be understood another name, by which a person may still mend it:
/// ".damaged" behind its own, or the first of ".damaged-2", ".damaged-3" and so on that is free.
/// Answers the new path.
Result<std::filesystem::path> putAside(const std::filesystem::path& path);

}  // namespace qf
