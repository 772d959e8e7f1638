// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/StatusBar.h"
#include "tests/support/Journal.h"

namespace qf {

/// What a status bar of one item shows, readable as long as the bar lives.
class FakeStatusBar : public StatusBar {
 public:
  struct Button : StatusItemButton {
    void setHighlighted(bool highlighted) override {
      journal.emplace_back(highlighted ? "highlighted" : "not highlighted");
    }
    void setImage(std::optional<Image> newImage) override {
      journal.push_back("image " + (newImage ? newImage->name : "none"));
      image = std::move(newImage);
    }
    void setEnabled(bool enabled) override {
      journal.emplace_back(enabled ? "enabled" : "disabled");
    }

    std::optional<Image> image;
  };

  Availability availability() const override { return Availability::available(); }
  std::unique_ptr<StatusItem> statusItemWithLength(double length) override {
    journal.emplace_back(length == variableLength ? "status item" : "narrow status item");
    return std::make_unique<Item>(*this);
  }

  Button button;
  std::optional<Image> itemImage;  ///< as set on the item, not on its button
  Menu* menu = nullptr;

 private:
  struct Item : StatusItem {
    explicit Item(FakeStatusBar& owner) : bar(owner) {}
    StatusItemButton& button() override { return bar.button; }
    void setImage(std::optional<Image> image) override { bar.itemImage = std::move(image); }
    void setMenu(Menu* newMenu) override {
      journal.emplace_back("status item's menu");
      bar.menu = newMenu;
    }

    FakeStatusBar& bar;
  };
};

}  // namespace qf
