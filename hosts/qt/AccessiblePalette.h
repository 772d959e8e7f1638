// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

class QtPaletteTable;

/// From now on screen readers find the rows of palette tables and the group chooser's menu. Once.
void showPaletteToAccessibility();

/// The table's rows are others now.
void forgetAccessibleRows(QtPaletteTable& table);

}  // namespace qf
