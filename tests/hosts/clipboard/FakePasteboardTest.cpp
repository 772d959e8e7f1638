// SPDX-License-Identifier: Apache-2.0
#include "tests/contract/PasteboardContract.h"
#include "tests/support/FakePasteboard.h"

namespace qf {
namespace {

struct InMemory {
  static bool isThere() { return true; }
  Pasteboard& pasteboard() { return board; }
  Pasteboard& other() { return board; }
  FakePasteboard board;
};

INSTANTIATE_TYPED_TEST_SUITE_P(InMemory, PasteboardContract, InMemory);

}  // namespace
}  // namespace qf
