// SPDX-License-Identifier: Apache-2.0
#include "tests/contract/AccessibilityContract.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/FakePasteboard.h"

namespace qf {
namespace {

class InMemory {
 public:
  static bool isThere() { return true; }
  Accessibility& accessibility() { return _accessibility; }
  Pasteboard& pasteboard() { return _pasteboard; }
  std::int32_t process() const { return 42; }
  std::string text() const { return _editor.text; }
  void put(const std::string& text, bool isSelected) {
    _editor.text = text;
    _editor.selection = isSelected ? text : "";
  }

 private:
  FakeAccessibility _accessibility;
  FakePasteboard _pasteboard;
  FakeEditor _editor{_accessibility, _pasteboard, 42};
};

INSTANTIATE_TYPED_TEST_SUITE_P(InMemory, AccessibilityContract, InMemory);

}  // namespace
}  // namespace qf
