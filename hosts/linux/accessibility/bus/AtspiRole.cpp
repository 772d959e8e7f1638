// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiRole.h"

namespace qf {

std::string_view accessibilityRole(uint role, AtspiStates states) {
  switch (role) {
    case atspirole::text:
    case atspirole::entry:
      return states.has(AtspiState::multiLine) ? "AXTextArea" : "AXTextField";
    case atspirole::passwordText:
      return "AXTextField";
    case atspirole::terminal:
      return "AXTextArea";
    case atspirole::paragraph:
      return states.has(AtspiState::editable) ? "AXTextArea" : "AXStaticText";
    case atspirole::documentFrame:
    case atspirole::documentText:
    case atspirole::documentWeb:
    case atspirole::documentEmail:
      return "AXWebArea";
    case atspirole::frame:
    case atspirole::dialog:
    case atspirole::alert:
    case atspirole::fileChooser:
    case atspirole::window:
      return "AXWindow";
    case atspirole::menuBar:
      return "AXMenuBar";
    case atspirole::menu:
    case atspirole::popupMenu:
      return "AXMenu";
    case atspirole::menuItem:
      return "AXMenuItem";
    case atspirole::label:
      return "AXStaticText";
    case atspirole::image:
      return "AXImage";
    case atspirole::pushButton:
      return "AXButton";
    case atspirole::checkBox:
    case atspirole::toggleButton:
      return "AXCheckBox";
    case atspirole::radioButton:
      return "AXRadioButton";
    case atspirole::comboBox:
      return "AXComboBox";
    case atspirole::toolBar:
      return "AXToolbar";
    case atspirole::scrollBar:
      return "AXScrollBar";
    case atspirole::scrollPane:
    case atspirole::viewport:
      return "AXScrollArea";
    case atspirole::splitPane:
      return "AXSplitGroup";
    case atspirole::list:
      return "AXList";
    case atspirole::table:
    case atspirole::treeTable:
      return "AXTable";
    case atspirole::tree:
      return "AXOutline";
    case atspirole::filler:
    case atspirole::panel:
    case atspirole::grouping:
    case atspirole::section:
    case atspirole::statusBar:
      return "AXGroup";
    default:
      return "AXUnknown";
  }
}

bool holdsText(uint role) {
  switch (role) {
    case atspirole::documentEmail:
    case atspirole::documentFrame:
    case atspirole::documentText:
    case atspirole::documentWeb:
    case atspirole::entry:
    case atspirole::paragraph:
    case atspirole::passwordText:
    case atspirole::text:
      return true;
    default:
      return false;
  }
}

bool isContainer(uint role) {
  return canHoldMenuBar(role) || role == atspirole::pageTab || role == atspirole::pageTabList;
}

bool holdsNoText(uint role) {
  switch (role) {
    case atspirole::checkBox:
    case atspirole::comboBox:
    case atspirole::icon:
    case atspirole::list:
    case atspirole::listBox:
    case atspirole::listItem:
    case atspirole::pushButton:
    case atspirole::radioButton:
    case atspirole::slider:
    case atspirole::table:
    case atspirole::tableCell:
    case atspirole::tableRow:
    case atspirole::toggleButton:
    case atspirole::tree:
    case atspirole::treeItem:
    case atspirole::treeTable:
      return true;
    default:
      return false;
  }
}

bool canHoldMenuBar(uint role) {
  switch (role) {
    case atspirole::filler:
    case atspirole::frame:
    case atspirole::glassPane:
    case atspirole::grouping:
    case atspirole::internalFrame:
    case atspirole::layeredPane:
    case atspirole::optionPane:
    case atspirole::panel:
    case atspirole::redundantObject:
    case atspirole::rootPane:
    case atspirole::scrollPane:  // in LibreOffice
    case atspirole::section:
    case atspirole::splitPane:
    case atspirole::toolBar:
    case atspirole::unknown:
    case atspirole::viewport:
    case atspirole::window:
      return true;
    default:
      return false;
  }
}

}  // namespace qf
