// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/XcbPasteboard.h"

#include <utility>

namespace qf {

XcbPasteboard::XcbPasteboard(const std::string& displayName)
    : _service(displayName), _reader(displayName) {}

/// The notice of another owner may still be on its way to the service's thread when somebody who
/// has seen it asks us to read: only the server knows.
std::shared_ptr<const ClipboardContents> XcbPasteboard::ownContents() const {
  auto contents = _service.contents();
  return contents && _reader.owner() == _service.window() ? contents : nullptr;
}

Result<std::string> XcbPasteboard::text() const {
  const auto own = ownContents();
  if (!own) return _reader.text();
  auto text = own->string();
  if (!text) return Error{std::string(noTextReason)};
  return *std::move(text);
}

std::vector<PasteboardItem> XcbPasteboard::items() const {
  if (const auto own = ownContents()) return own->items();
  PasteboardItem item = _reader.item();
  if (item.representations.empty()) return {};
  return {std::move(item)};
}

bool XcbPasteboard::setString(std::string_view text) {
  return setItems({{{{std::string(pasteboardTypeString), Data(text.begin(), text.end())}}}});
}

bool XcbPasteboard::setItems(std::vector<PasteboardItem> items) {
  return _service.own(std::make_shared<const ClipboardContents>(std::move(items))).has_value();
}

bool XcbPasteboard::hasContents(std::string_view identifier) const {
  const auto ownership = _service.settledOwnership();
  return ownership && ownership->isNamed(identifier);
}

std::optional<std::string> XcbPasteboard::replaceContents(std::string_view identifier,
                                                          std::vector<PasteboardItem> items) {
  const auto ownership =
      _service.own(std::make_shared<const ClipboardContents>(std::move(items)), identifier);
  if (!ownership) return std::nullopt;
  return ownership->identifier();
}

}  // namespace qf
