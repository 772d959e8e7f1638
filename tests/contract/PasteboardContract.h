// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>
#include <utility>

#include "host/Pasteboard.h"

namespace qf {

inline Data bytesOf(std::string_view text) { return Data(text.begin(), text.end()); }

/// What every general pasteboard must do. `Boards` has `pasteboard()` and `other()`: the same place
/// as another application sees it (the same object, where nobody else can).
template <class Boards>
class PasteboardContract : public testing::Test {
 protected:
  void SetUp() override {
    if (!_boards.isThere()) GTEST_SKIP() << "needs a desktop";
  }

  Pasteboard& pasteboard() { return _boards.pasteboard(); }
  Pasteboard& other() { return _boards.other(); }

  /// Another application learns of a change soon, not at once.
  static bool soon(const std::function<bool()>& isTrue) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!isTrue()) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }

  Boards _boards;
};

TYPED_TEST_SUITE_P(PasteboardContract);

TYPED_TEST_P(PasteboardContract, isTheGeneralOneAndThere) {
  EXPECT_EQ(this->pasteboard().name(), NSGeneralPboard);
  EXPECT_TRUE(this->pasteboard().availability().isAvailable);
}

TYPED_TEST_P(PasteboardContract, givesTextBackToItselfAndToOthers) {
  std::string megabyte;
  while (megabyte.size() < (1u << 20)) megabyte += "Füße, 文字, 𝄞\n";
  for (const std::string& text :
       {std::string(), std::string("plain"), std::string("a\0b\r\n\t", 6), megabyte}) {
    ASSERT_TRUE(this->pasteboard().setString(text));
    EXPECT_EQ(this->pasteboard().string(), text);
    EXPECT_EQ(this->other().string(), text);
    EXPECT_THAT(
        this->other().items(),
        testing::ElementsAre(PasteboardItem{{{std::string(pasteboardTypeString), bytesOf(text)}}}));
  }
}

TYPED_TEST_P(PasteboardContract, countsEveryChangeByWhomever) {
  auto& board = this->pasteboard();
  board.setString("before");
  std::int64_t last = board.changeCount();
  const auto isChanged = [&] { return std::exchange(last, board.changeCount()) != last; };
  EXPECT_FALSE(isChanged());
  board.setString("same");
  EXPECT_TRUE(isChanged());
  board.setString("same");
  EXPECT_TRUE(isChanged());
  board.clearContents();
  EXPECT_TRUE(isChanged());
  EXPECT_FALSE(isChanged());
  this->other().setString("other");
  EXPECT_TRUE(this->soon(isChanged));
  EXPECT_EQ(board.string(), "other");
}

TYPED_TEST_P(PasteboardContract, namesItsContentsAndReplacesNoOthers) {
  auto& board = this->pasteboard();
  auto& other = this->other();
  const auto items = [](std::string_view text) {
    return std::vector{PasteboardItem{{{std::string(pasteboardTypeString), bytesOf(text)}}}};
  };
  ASSERT_TRUE(board.setString("first"));
  const std::string first = board.contentsIdentifier();
  EXPECT_TRUE(board.hasContents(first));
  EXPECT_TRUE(other.hasContents(first));
  EXPECT_EQ(other.contentsIdentifier(), first);
  EXPECT_FALSE(board.hasContents(""));
  EXPECT_FALSE(board.hasContents(first + "0"));
  ASSERT_TRUE(board.setString("first"));
  EXPECT_FALSE(other.hasContents(first));

  const std::string again = board.contentsIdentifier();
  ASSERT_TRUE(other.setString("second"));
  EXPECT_FALSE(board.hasContents(again));
  EXPECT_EQ(board.replaceContents(again, items("third")), std::nullopt);
  EXPECT_EQ(board.string(), "second");

  const auto third = board.replaceContents(other.contentsIdentifier(), items("third"));
  ASSERT_TRUE(third);
  EXPECT_TRUE(other.hasContents(*third));
  EXPECT_EQ(other.string(), "third");
}

TYPED_TEST_P(PasteboardContract, readsAtOnceWhatOthersPutThere) {
  for (int i = 0; i < 200; ++i) {
    this->pasteboard().setString("ours");
    this->other().setString("theirs");
    ASSERT_EQ(this->pasteboard().string(), "theirs");
  }
}

TYPED_TEST_P(PasteboardContract, isEmptyOnceCleared) {
  this->pasteboard().setString("gone");
  this->pasteboard().clearContents();
  for (Pasteboard* board : {&this->pasteboard(), &this->other()}) {
    EXPECT_EQ(board->string(), std::nullopt);
    EXPECT_TRUE(board->items().empty());
  }
}

TYPED_TEST_P(PasteboardContract, keepsEveryFormInItsOrder) {
  const PasteboardItem item{{{"text/html", bytesOf("<b>bold</b>")},
                             {std::string(pasteboardTypeString), bytesOf("bold ß")},
                             {"image/png", Data(3'000'000, 0x5A)},
                             {"application/x-empty", {}}}};
  ASSERT_TRUE(this->pasteboard().setItems({item}));
  EXPECT_THAT(this->pasteboard().items(), testing::ElementsAre(item));
  EXPECT_THAT(this->other().items(), testing::ElementsAre(item));
  EXPECT_EQ(this->other().string(), "bold ß");

  // Taking all off and putting it back changes nothing for others.
  this->other().setItems(this->other().items());
  EXPECT_TRUE(this->soon([&] {
    const auto items = this->pasteboard().items();
    return items.size() == 1 && items.front() == item;
  }));
}

TYPED_TEST_P(PasteboardContract, keepsSeveralItems) {
  const std::vector<PasteboardItem> items{
      {{{"image/png", bytesOf("png")}, {"image/bmp", bytesOf("bmp")}, {"a/b", bytesOf("c")}}},
      {{{"image/png", bytesOf("second")}}}};
  ASSERT_TRUE(this->pasteboard().setItems(items));
  EXPECT_EQ(this->pasteboard().items(), items);
  EXPECT_EQ(this->pasteboard().string(), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(PasteboardContract, isTheGeneralOneAndThere,
                            givesTextBackToItselfAndToOthers, countsEveryChangeByWhomever,
                            namesItsContentsAndReplacesNoOthers, readsAtOnceWhatOthersPutThere,
                            isEmptyOnceCleared, keepsEveryFormInItsOrder, keepsSeveralItems);

}  // namespace qf
