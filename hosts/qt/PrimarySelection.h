// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// Keeps the text fields of this process from taking the primary selection, into which Qt puts
/// whatever is selected: the editor that had it would drop its own selection, and its whole text
/// would be cleaned. Called once before the first window; no text can be pasted with the middle
/// button then.
void leavePrimarySelectionAlone();

}  // namespace qf
