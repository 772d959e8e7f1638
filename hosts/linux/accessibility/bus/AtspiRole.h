// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>
#include <string_view>

#include "hosts/linux/accessibility/bus/AtspiStates.h"

namespace qf {

/// The roles that are told apart here, by their numbers in AT-SPI 2 (atspi-constants.h).
namespace atspirole {
inline constexpr uint alert = 2, checkBox = 7, comboBox = 11, dialog = 16, fileChooser = 19,
                      filler = 20, frame = 23, glassPane = 24, icon = 26, image = 27,
                      internalFrame = 28, label = 29, layeredPane = 30, list = 31, listItem = 32,
                      menu = 33, menuBar = 34, menuItem = 35, optionPane = 36, pageTab = 37,
                      pageTabList = 38, panel = 39, passwordText = 40, popupMenu = 41,
                      pushButton = 43, radioButton = 44, rootPane = 46, scrollBar = 48,
                      scrollPane = 49, slider = 51, spinButton = 52, splitPane = 53, statusBar = 54,
                      table = 55, tableCell = 56, terminal = 60, text = 61, toggleButton = 62,
                      toolBar = 63, tree = 65, treeTable = 66, unknown = 67, viewport = 68,
                      window = 69, paragraph = 73, entry = 79, documentFrame = 82, section = 85,
                      redundantObject = 86, tableRow = 90, treeItem = 91, documentText = 94,
                      documentWeb = 95, documentEmail = 96, listBox = 98, grouping = 99;
}  // namespace atspirole

/// The role under which elements of that role and state are shown, "AXUnknown" for the many that
/// nobody asks for.
std::string_view accessibilityRole(uint role, AtspiStates states);

/// Whether objects of that role are texts, or parts of one.
bool holdsText(uint role);

/// Whether objects of that role only hold others, or lead to one that is shown elsewhere.
bool isContainer(uint role);

/// Whether objects of that role hold other things than text, unless they say that they take some.
bool holdsNoText(uint role);

/// Whether a menu bar may lie somewhere below objects of that role.
bool canHoldMenuBar(uint role);

}  // namespace qf
