// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "host/Pasteboard.h"
#include "hosts/linux/clipboard/ClipboardReader.h"
#include "hosts/linux/clipboard/ClipboardService.h"

namespace qf {

/// The X11 selection CLIPBOARD as the general pasteboard. What we own ourselves is answered from
/// memory, so that reading never waits for our own service.
class XcbPasteboard : public Pasteboard {
 public:
  /// An empty display name is the session's own (DISPLAY).
  explicit XcbPasteboard(const std::string& displayName = {});

  Availability availability() const override { return _service.availability(); }
  std::string name() const override { return std::string(NSGeneralPboard); }
  std::int64_t changeCount() const override { return _service.changeCount(); }

  Result<std::string> text() const override;
  std::vector<PasteboardItem> items() const override;

  void clearContents() override { setItems({}); }
  bool setString(std::string_view text) override;
  bool setItems(std::vector<PasteboardItem> items) override;

  std::chrono::steady_clock::time_point primaryGivenUp() const { return _service.primaryGivenUp(); }
  ClipboardOwnership ownership() const { return _service.ownership(); }
  /// "x11:OWNER:TIME": the window that owns the selection and since when, both in decimal. The time
  /// is 0 for contents that are older than this object: those are told apart by their owner.
  std::string contentsIdentifier() const override { return _service.ownership().identifier(); }
  bool hasContents(std::string_view identifier) const override;
  std::optional<std::string> replaceContents(std::string_view identifier,
                                             std::vector<PasteboardItem> items) override;

 private:
  std::shared_ptr<const ClipboardContents> ownContents() const;

  ClipboardService _service;
  mutable ClipboardReader _reader;
};

}  // namespace qf
