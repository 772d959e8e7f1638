// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/clipboard/XcbPasteboard.h"

namespace qf {

/// The pasteboards of an X11 session: the general one only.
class XcbPasteboards : public Pasteboards {
 public:
  XcbPasteboard& generalPasteboard() override { return _general; }
  Pasteboard* pasteboardWithName(std::string_view name) override {
    return name == NSGeneralPboard ? &_general : nullptr;
  }

 private:
  XcbPasteboard _general;
};

}  // namespace qf
