// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/support/FakePasteboard.h"
#include "textaccess/PasteboardSaveRestore.h"

namespace qf {
namespace {

TEST(PasteboardSaveRestore, BringsBackEveryItemAndType) {
  const std::vector<PasteboardItem> rich = {
      {{{"text/html", {1}}, {std::string(pasteboardTypeString), {2}}, {"image/png", {}}}},
      {{{"text/uri-list", {3}}}}};
  FakePasteboard pasteboard;
  pasteboard.setItems(rich);

  const auto saved = mm_saveContents(pasteboard);
  pasteboard.setString("meanwhile");
  mm_restoreContents(pasteboard, saved);
  EXPECT_EQ(pasteboard.items(), rich);

  FakePasteboard empty;
  mm_restoreContents(pasteboard, mm_saveContents(empty));
  EXPECT_TRUE(pasteboard.items().empty());
}

}  // namespace
}  // namespace qf
