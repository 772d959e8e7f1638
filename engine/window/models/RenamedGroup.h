// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "foundation/Error.h"

namespace qf {

class MenuSettings;

/// Has shortcuts that pop up the group name it as it is called now, and the menu show it from the
/// agent's next start on; an agent that runs looks at that choice only when it starts.
[[nodiscard]] std::optional<Error> followRenamedGroup(MenuSettings& settings,
                                                      const std::string& formerName,
                                                      const std::string& name);

}  // namespace qf
