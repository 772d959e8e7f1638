// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>

namespace qf {

/// Has the process's windows speak the person's language, and run in its direction, where the
/// folder holds "quenfold_<language>.qm" for it; else they stay English. Called once, after the
/// application object is made.
void installTranslations(const std::filesystem::path& folder);

}  // namespace qf
