// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

namespace qf {

/// The file's URL for log lines: "file://" and the path, percent-encoded (RFC 8089).
std::string fileURLString(const std::filesystem::path& path);

}  // namespace qf
