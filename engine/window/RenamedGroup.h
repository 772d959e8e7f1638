// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "foundation/Error.h"

namespace qf {

class MenuSettings;

/// Has shortcuts that pop up the group, and the menu where it shows it, name it as it is called
/// now.
std::optional<Error> followRenamedGroup(MenuSettings& settings, const std::string& formerName,
                                        const std::string& name);

}  // namespace qf
