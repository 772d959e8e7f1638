// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Pasteboard.h"
#include "tests/support/FakeAccessibility.h"

namespace qf {

/// A text editor that others see through accessibility only: its Edit menu works on its text and
/// on the pasteboard.
class FakeEditor {
 public:
  FakeEditor(FakeAccessibility& accessibility, Pasteboard& pasteboard, std::int32_t process)
      : application(FakeAccessibilityElement::make("AXApplication")),
        menuBar(application->add(FakeAccessibilityElement::make("AXMenuBar"))),
        textArea(application->add(FakeAccessibilityElement::make("AXWindow"))
                     ->add(FakeAccessibilityElement::make("AXTextArea"))),
        _pasteboard(pasteboard) {
    application->attributes["AXMenuBar"] = AccessibilityElementRef(menuBar);
    application->attributes["AXFocusedUIElement"] = AccessibilityElementRef(textArea);
    textArea->process = process;
    addMenu();
    addMenu();
    addMenu()->add(FakeAccessibilityElement::menuItem("S", [] { return false; }));
    fillEditMenu(*addMenu());
    accessibility.applications[process] = application;
  }
  FakeEditor(const FakeEditor&) = delete;
  FakeEditor& operator=(const FakeEditor&) = delete;

  /// Appends an item to the menu bar, with its menu; answers the menu.
  FakeAccessibilityElement::Ref addMenu() {
    return menuBar->add(FakeAccessibilityElement::make("AXMenuBarItem"))
        ->add(FakeAccessibilityElement::make("AXMenu"));
  }

  /// The menu at that place of the menu bar; Edit is at 3.
  FakeAccessibilityElement::Ref menuAt(std::size_t index) const {
    return menuBar->children().at(index)->children().at(0);
  }

  std::string text;
  std::string selection;    ///< a part of the text; empty for none
  bool copyReaches = true;  ///< whether a press of Copy reaches the pasteboard
  bool canSelectAll = true;
  std::vector<std::string> presses;

  const FakeAccessibilityElement::Ref application;
  const FakeAccessibilityElement::Ref menuBar;
  const FakeAccessibilityElement::Ref textArea;

 private:
  void fillEditMenu(FakeAccessibilityElement& menu) {
    // Stands before Copy, to be told from it by its modifiers alone.
    menu.add(FakeAccessibilityElement::menuItem(
        "C", [this] { return pressed("Copy Style"); }, 1));
    const auto copy = menu.add(FakeAccessibilityElement::menuItem("C", [this] {
      if (copyReaches) _pasteboard.setString(selection);
      return pressed("Copy");
    }));
    copy->isEnabled = [this] { return !selection.empty(); };
    menu.add(FakeAccessibilityElement::menuItem("V",
                                                [this] {
                                                  const auto start = text.find(selection);
                                                  text.replace(start, selection.size(),
                                                               _pasteboard.string().value_or(""));
                                                  selection.clear();
                                                  return pressed("Paste");
                                                }))
        ->isEnabled = [this] { return _pasteboard.string().has_value(); };
    menu.add(FakeAccessibilityElement::menuItem("A", [this] {
      if (canSelectAll) selection = text;
      return pressed("Select All") && canSelectAll;
    }));
  }

  bool pressed(std::string name) {
    presses.push_back(std::move(name));
    return true;
  }

  Pasteboard& _pasteboard;
};

}  // namespace qf
