// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

namespace qf {
namespace {

TEST(AtspiKeyBinding, ReadsWhatToolkitsWrite) {
  struct Case {
    const char* binding;
    const char* character;
    std::int64_t modifiers;
  };
  for (const auto& [binding, character, modifiers] : {
           Case{"c;<Alt>e:c;<Primary>c", "C", 0},
           Case{"y;<Alt>e:y;<Control>c", "C", 0},
           Case{"Ctrl+C", "C", 0},
           Case{"Ctrl+Shift+C", "C", 1},
           Case{"x;<Alt>e:x;<Primary><Shift>v", "V", 1},
           Case{";;<Primary><Alt><Super>a", "A", 6},
           Case{"Alt+H", "H", 10},
           Case{"c;;<Alt>c", "C", 10},
           Case{"Ctrl++", "+", 0},
           Case{"Ctrl+;", ";", 0},
           Case{"Ctrl+ä", "Ä", 0},
       }) {
    EXPECT_EQ(parseAtspiKeyBinding(binding), (AtspiKeyBinding{character, modifiers})) << binding;
  }
}

TEST(AtspiKeyBinding, WhatIsNotOneCharacterIsNoKeyEquivalent) {
  for (const char* binding : {"", "f;<Alt>f;", ";;", "F11", "Ctrl+Ins", "n;;<Primary>Page_Up",
                              "Ctrl+K, Ctrl+C", "Nonsense+C", "<Primary", "Ctrl+", "+", "\xff\xff"})
    EXPECT_FALSE(parseAtspiKeyBinding(binding) && parseAtspiKeyBinding(binding)->modifiers == 0)
        << binding;
}

}  // namespace
}  // namespace qf
