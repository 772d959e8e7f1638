// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiAccessibility.h"
#include "hosts/linux/clipboard/XcbPasteboard.h"
#include "tests/contract/AccessibilityContract.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/accessibility/FakeSurroundings.h"
#include "tests/support/FakeWorkspace.h"

namespace qf {
namespace {

class OnAtspi {
 public:
  static bool isThere() { return !qEnvironmentVariableIsEmpty("QF_SESSION"); }
  OnAtspi() { _editor.reset("text", false); }
  Accessibility& accessibility() { return _accessibility; }
  Pasteboard& pasteboard() { return _pasteboard; }
  std::int32_t process() {
    return static_cast<std::int32_t>(_editor.program().processIdentifier());
  }
  std::string text() const { return _editor.text().toStdString(); }
  void put(const std::string& text, bool isSelected) {
    _editor.reset(QString::fromStdString(text), isSelected);
  }

 private:
  XcbPasteboard _pasteboard;
  FakeWorkspace _workspace;
  FakeSurroundings _surroundings;
  CleanRequest _request{_pasteboard, _surroundings};
  AtspiAccessibility _accessibility{_pasteboard, _workspace, _request};
  desktop::Editor _editor{"mousepad", "text"};
};

INSTANTIATE_TYPED_TEST_SUITE_P(OnAtspi, AccessibilityContract, OnAtspi);

}  // namespace
}  // namespace qf
