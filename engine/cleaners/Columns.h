// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "engine/cleaners/TextLines.h"

namespace qf {

/// For each line whether it is a row of a table that is laid out with blanks or tabs: it has two or
/// more blanks in a row, or a tab, between words, and a line near it in the same block has as many,
/// with columns that begin or end at the same place.
std::vector<bool> tableRows(const std::vector<TextLine>& lines);

}  // namespace qf
