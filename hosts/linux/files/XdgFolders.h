// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>

namespace qf {

// The user's own folders by the XDG Base Directory standard 0.8. Empty where neither the
// variable (an absolute path, or it does not count) nor a home folder is known. They need not
// exist.

std::optional<std::filesystem::path> xdgDataHome();
std::optional<std::filesystem::path> xdgConfigHome();
std::optional<std::filesystem::path> xdgStateHome();

}  // namespace qf
