// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Pasteboard.h"

namespace qf {

/// What we put on the clipboard: the items as they were given, and the targets under which other
/// applications get them. X11 knows one item only, so of several items the first that has a form
/// offers it. Immutable; any thread.
class ClipboardContents {
 public:
  struct Offer {
    std::string target;
    std::string type;  ///< of the property that carries the data
    std::shared_ptr<const Data> data;
  };

  explicit ClipboardContents(std::vector<PasteboardItem> items);

  const std::vector<PasteboardItem>& items() const { return *_items; }
  const std::vector<Offer>& offers() const { return _offers; }
  /// The plain text, or nothing where there is none.
  std::optional<std::string> string() const;

 private:
  const Offer* find(std::string_view target) const;
  void offer(std::string target, std::string type, std::shared_ptr<const Data> data);
  void offerSpellings(const std::shared_ptr<const Data>& text);

  // Shared with the offers, which point into it.
  std::shared_ptr<const std::vector<PasteboardItem>> _items;
  std::vector<Offer> _offers;
};

}  // namespace qf
