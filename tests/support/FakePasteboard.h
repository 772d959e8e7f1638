// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <utility>

#include "host/Pasteboard.h"

namespace qf {

/// A pasteboard in memory.
class FakePasteboard : public Pasteboard {
 public:
  explicit FakePasteboard(std::string pasteboardName = std::string(NSGeneralPboard))
      : _name(std::move(pasteboardName)) {}

  Availability availability() const override { return Availability::available(); }
  std::string name() const override { return _name; }
  std::int64_t changeCount() const override { return _changeCount; }

  Result<std::string> text() const override {
    for (const PasteboardItem& item : _items) {
      for (const auto& [type, data] : item.representations) {
        if (type == pasteboardTypeString) return std::string(data.begin(), data.end());
      }
    }
    return Error{std::string(noTextReason)};
  }
  std::vector<PasteboardItem> items() const override { return _items; }

  void clearContents() override { setItems({}); }
  bool setString(std::string_view text) override {
    return setItems({{{{std::string(pasteboardTypeString), Data(text.begin(), text.end())}}}});
  }
  bool setItems(std::vector<PasteboardItem> items) override {
    _items = std::move(items);
    ++_changeCount;
    return true;
  }

  std::string contentsIdentifier() const override { return "fake:" + std::to_string(_changeCount); }
  bool hasContents(std::string_view identifier) const override {
    return identifier == contentsIdentifier();
  }
  std::optional<std::string> replaceContents(std::string_view identifier,
                                             std::vector<PasteboardItem> items) override {
    if (!hasContents(identifier)) return std::nullopt;
    setItems(std::move(items));
    return contentsIdentifier();
  }

 private:
  std::string _name;
  std::vector<PasteboardItem> _items;
  std::int64_t _changeCount = 0;
};

/// The general pasteboard, and whichever others a test names.
class FakePasteboards : public Pasteboards {
 public:
  FakePasteboard& generalPasteboard() override { return _general; }
  Pasteboard* pasteboardWithName(std::string_view name) override {
    if (name == NSGeneralPboard) return &_general;
    const auto found = others.find(name);
    return found == others.end() ? nullptr : &found->second;
  }

  std::map<std::string, FakePasteboard, std::less<>> others;

 private:
  FakePasteboard _general;
};

}  // namespace qf
