// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/CustomFilePath.h"

#include "hosts/linux/files/XdgFolders.h"

namespace qf {

std::filesystem::path customFilePath() {
  const auto folder = xdgConfigHome();
  return folder ? *folder / "quenfold" / "cleaners.json" : std::filesystem::path();
}

}  // namespace qf
