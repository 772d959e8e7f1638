// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/PaletteWindow.h"

namespace qf {

/// What a palette's window shows, readable as long as its maker lives. Its rows are drawn when the
/// test says so.
class FakePaletteWindows : public PaletteWindows {
 public:
  std::unique_ptr<PaletteWindow> makeWindow(PaletteWindowDelegate& windowDelegate) override {
    delegate = &windowDelegate;
    return std::make_unique<Window>(*this);
  }

  /// The titles of all rows, in order.
  std::vector<std::string> rows() const {
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < delegate->numberOfRows(); ++i)
      titles.push_back(delegate->cellForRow(i).title.text);
    return titles;
  }
  std::vector<std::string> groups() const {
    std::vector<std::string> titles;
    for (const MenuItemRef& item : menu.items())
      titles.push_back(item->isSeparator() ? "--" : item->title);
    return titles;
  }
  void click(std::size_t row) {
    if (delegate->shouldSelectRow(row)) selectedRow = row;
    delegate->apply();
  }
  void search(const std::string& text) {
    searchText = text;
    delegate->controlTextDidChange();
  }

  PaletteWindowDelegate* delegate = nullptr;
  bool isVisible = false;
  bool pullsDown = false;
  bool editButtonIsHidden = false;
  int resignations = 0;
  int reloads = 0;
  std::string frame = "0 0 200 300";
  std::string popupTitle;
  std::string searchText;
  Menu menu;
  Size spacing;
  std::optional<std::size_t> selectedRow;

 private:
  struct Window final : PaletteWindow, PalettePopUpButton, PaletteTableView, PaletteSearchField {
    explicit Window(FakePaletteWindows& owner) : state(owner) {}

    bool isVisible() const override { return state.isVisible; }
    void orderFront() override { state.isVisible = true; }
    void orderOut() override { state.isVisible = false; }
    void resignKeyWindow() override { ++state.resignations; }
    std::string stringWithSavedFrame() const override { return state.frame; }
    void setFrameFromString(const std::string& frame) override { state.frame = frame; }
    PalettePopUpButton& namePopup() override { return *this; }
    void setEditGroupButtonHidden(bool hidden) override { state.editButtonIsHidden = hidden; }
    PaletteTableView& cleanerListTableView() override { return *this; }
    PaletteSearchField& searchField() override { return *this; }

    bool pullsDown() const override { return state.pullsDown; }
    Menu& menu() override { return state.menu; }
    void setTitle(const std::string& title) override { state.popupTitle = title; }

    double rowHeight() const override { return 20; }
    void setIntercellSpacing(Size spacing) override { state.spacing = spacing; }
    void reloadData() override { ++state.reloads; }
    std::optional<std::size_t> selectedRow() const override { return state.selectedRow; }
    void deselectAll() override { state.selectedRow.reset(); }

    std::string stringValue() const override { return state.searchText; }
    void setStringValue(const std::string& text) override { state.searchText = text; }

    FakePaletteWindows& state;
  };
};

}  // namespace qf
