// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardContents.h"

#include <algorithm>
#include <utility>

#include "foundation/Unicode.h"
#include "hosts/linux/clipboard/ClipboardText.h"

namespace qf {

ClipboardContents::ClipboardContents(std::vector<PasteboardItem> items)
    : _items(std::make_shared<const std::vector<PasteboardItem>>(std::move(items))) {
  for (const PasteboardItem& item : *_items) {
    for (const auto& [type, data] : item.representations) {
      offer(type, type, std::shared_ptr<const Data>(_items, &data));
    }
  }
  if (const Offer* text = find(pasteboardTypeString)) {
    const auto data = text->data;  // a further offer moves the ones before
    offerSpellings(data);
  }
}

std::optional<std::string> ClipboardContents::string() const {
  const Offer* best = nullptr;
  for (const Offer& candidate : _offers) {
    const auto rank = plainTextRank(candidate.target);
    if (rank && (!best || *rank < *plainTextRank(best->target))) best = &candidate;
  }
  if (!best) return std::nullopt;
  return textFromSelection(best->type, *best->data);
}

const ClipboardContents::Offer* ClipboardContents::find(std::string_view target) const {
  const auto found = std::ranges::find(_offers, target, &Offer::target);
  return found == _offers.end() ? nullptr : &*found;
}

void ClipboardContents::offer(std::string target, std::string type,
                              std::shared_ptr<const Data> data) {
  if (find(target)) return;
  _offers.push_back({std::move(target), std::move(type), std::move(data)});
}

void ClipboardContents::offerSpellings(const std::shared_ptr<const Data>& text) {
  offer("UTF8_STRING", "UTF8_STRING", text);
  offer("text/plain", "text/plain", text);
  if (isASCII({reinterpret_cast<const char*>(text->data()), text->size()})) {
    offer("STRING", "STRING", text);
  } else if (auto latin1 = latin1FromText(*text)) {
    offer("STRING", "STRING", std::make_shared<const Data>(std::move(*latin1)));
  }
  offer("TEXT", "UTF8_STRING", text);
}

}  // namespace qf
