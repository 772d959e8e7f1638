// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qf {

/// Has the process's windows speak the first of the languages ("de_AT", "de") for which the folder
/// holds "quenfold_<language>.qm", and run in its direction; else they stay English. Called once,
/// after the application object is made.
void installTranslations(const std::filesystem::path& folder,
                         const std::vector<std::string>& languages);

}  // namespace qf
