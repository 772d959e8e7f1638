// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

namespace qf {

/// Where a person's own cleaners and groups are kept; empty where the person has no home folder.
std::filesystem::path customFilePath();

}  // namespace qf
