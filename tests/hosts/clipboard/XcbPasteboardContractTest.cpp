// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "hosts/linux/clipboard/XcbPasteboard.h"
#include "tests/contract/PasteboardContract.h"

namespace qf {
namespace {

struct OnX11 {
  static bool isThere() { return std::getenv("DISPLAY") != nullptr; }
  Pasteboard& pasteboard() { return ours; }
  Pasteboard& other() { return theirs; }
  XcbPasteboard ours;
  XcbPasteboard theirs;
};

INSTANTIATE_TYPED_TEST_SUITE_P(OnX11, PasteboardContract, OnX11);

}  // namespace
}  // namespace qf
