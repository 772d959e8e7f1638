// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/StatusBar.h"

namespace qf {

/// What a status bar of one item shows, readable as long as the bar lives.
class FakeStatusBar : public StatusBar {
 public:
  struct Button : StatusItemButton {
    void setHighlighted(bool highlighted) override { isHighlighted = highlighted; }
    void setImage(std::optional<Image> newImage) override { image = std::move(newImage); }
    void setEnabled(bool enabled) override { isEnabled = enabled; }

    bool isHighlighted = true;
    bool isEnabled = false;
    std::optional<Image> image;
  };

  Availability availability() const override { return Availability::available(); }
  std::unique_ptr<StatusItem> statusItemWithLength(double length) override {
    lengths.push_back(length);
    return std::make_unique<Item>(*this);
  }

  std::vector<double> lengths;  ///< one for each item ever asked for
  Button button;
  std::optional<Image> itemImage;  ///< as set on the item, not on its button
  Menu* menu = nullptr;

 private:
  struct Item : StatusItem {
    explicit Item(FakeStatusBar& owner) : bar(owner) {}
    StatusItemButton& button() override { return bar.button; }
    void setImage(std::optional<Image> image) override { bar.itemImage = std::move(image); }
    void setMenu(Menu* newMenu) override { bar.menu = newMenu; }

    FakeStatusBar& bar;
  };
};

}  // namespace qf
