// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "host/EventState.h"
#include "host/KeyEvent.h"
#include "shortcuts/KeyCode.h"
#include "shortcuts/MASDictionaryTransformer.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/ShortcutArchiveTransformer.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/FakeKeyboardLayout.h"

namespace qf {
namespace {

class Shortcut : public testing::Test {
 protected:
  FakeKeyboardLayout layout;
  FakeBundle bundle;
  ShortcutKeyNames names{layout, bundle};
};

TEST_F(Shortcut, KeepsTheFourModifiers) {
  const MASShortcut shortcut(40, 0x180100);
  EXPECT_EQ(shortcut.modifierFlags(), 0x180000u);
  EXPECT_EQ(shortcut.carbonFlags(), 0x900u);
  EXPECT_EQ(MASShortcut(0, ~0ull).modifierFlagsString(), "⌃⌥⇧⌘");
  EXPECT_EQ(MASShortcut(0, ~0ull).carbonFlags(), 0x1B00u);
  EXPECT_EQ(shortcut, MASShortcut(40, modifier::option | modifier::command));
  EXPECT_EQ(std::hash<MASShortcut>()(shortcut), 40u + 0x180000u);
  EXPECT_EQ(MASShortcut::shortcutWithEvent({0x10028, 0x1A0000}), MASShortcut(40, 0x1A0000));
  EXPECT_EQ(MASShortcut(keyCode::notFound, 0).carbonKeyCode(), 0u);
}

TEST_F(Shortcut, IsShownByName) {
  bundle.strings["Space"] = "Leertaste";
  const struct {
    std::uint64_t key;
    const char* name;
    const char* equivalent;
  } keys[] = {
      {40, "K", "k"},        {41, "Ö", "ö"},
      {27, "SS", ""},  // the upper case of ß has two letters, which no menu item shows
      {36, "↩", "↩"},        {49, "Leertaste", " "},
      {53, "⎋", "⎋"},        {78, "–", "–"},
      {114, "?", "?"},       {122, "F1", "\uF704"},
      {64, "F17", "\uF714"}, {80, "F19", "\uF716"},
      {90, "", ""},  // F20 types a control character at best
      {500, "", ""},         {keyCode::notFound, "", ""},
  };
  for (const auto& [key, name, equivalent] : keys) {
    const MASShortcut shortcut(key, 0);
    EXPECT_EQ(shortcut.keyCodeString(names), name) << key;
    EXPECT_EQ(shortcut.keyCodeStringForKeyEquivalent(names), equivalent) << key;
  }
  EXPECT_EQ(MASShortcut(36, modifier::command).description(names), "⌘↩");
  layout.keys->insert({50, "´ "});
  EXPECT_EQ(MASShortcut(50, 0).keyCodeString(names), "") << "a blank cannot be seen";
  layout.keys.reset();
  EXPECT_EQ(MASShortcut(40, 0).keyCodeString(names), std::nullopt);
  EXPECT_EQ(MASShortcut(40, modifier::control).description(names), "⌃");
}

TEST_F(Shortcut, IsArchived) {
  const ShortcutArchiveTransformer archive;
  for (const MASShortcut& shortcut :
       {MASShortcut(40, modifier::all), MASShortcut(keyCode::notFound, 0)}) {
    EXPECT_EQ(archive.transformedValue(archive.reverseTransformedValue(shortcut)), shortcut);
  }
  const Dictionary coded = MASShortcut(keyCode::notFound, 0).encodeWithCoder();
  EXPECT_EQ(coded, (Dictionary{{"KeyCode", -1}, {"ModifierFlags", 0}}));
  const auto unmasked = MASShortcut::initWithCoder({{"KeyCode", 5}, {"ModifierFlags", 1}});
  EXPECT_EQ(unmasked.modifierFlags(), 1u);
  EXPECT_EQ(unmasked.copy().modifierFlags(), 0u);

  EXPECT_FALSE(archive.reverseTransformedValue(std::nullopt));
  for (const std::optional<Value>& wrong :
       {std::optional<Value>(), std::optional<Value>("x"), std::optional<Value>(Data{1, 2, 3})}) {
    EXPECT_FALSE(archive.transformedValue(wrong));
  }
}

TEST_F(Shortcut, TravelsAsADictionary) {
  const auto& transformer = *ValueTransformer::valueTransformerForName("MASDictionaryTransformer");
  EXPECT_TRUE(transformer.allowsReverseTransformation());
  const Dictionary form{{"keyCode", 12}, {"modifierFlags", 0x100000}};
  EXPECT_EQ(transformer.reverseTransformedValue(MASShortcut(12, 0x100000)), Value(form));
  EXPECT_EQ(transformer.reverseTransformedValue(std::nullopt), Value(Dictionary()));
  EXPECT_EQ(transformer.transformedValue(
                Value(Dictionary{{"keyCode", "12"}, {"modifierFlags", "1048576"}})),
            MASShortcut(12, 0x100000));
  for (const Value& wrong : {Value(Dictionary{{"keyCode", 12}}), Value(12),
                             Value(Dictionary{{"keyCode", 12}, {"modifierFlags", Array{}}})}) {
    EXPECT_FALSE(transformer.transformedValue(wrong));
  }
  EXPECT_EQ(ValueTransformer::valueTransformerForName("other"), nullptr);
}

}  // namespace
}  // namespace qf
