// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace qf {

/// A boolean in the agent's own domain, NO by default: where nothing is selected, the text is left
/// alone.
inline constexpr std::string_view leavesWholeTextsDefault = "LeavesWholeTexts";

}  // namespace qf
