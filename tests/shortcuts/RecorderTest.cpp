// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "host/EventState.h"
#include "shortcuts/MASDictionaryTransformer.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/MASShortcutView.h"
#include "shortcuts/RecorderAreas.h"
#include "shortcuts/ShortcutArchiveTransformer.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/FakeKeyboardLayout.h"
#include "tests/support/FakeRecorderView.h"
#include "tests/support/FakeSound.h"
#include "tests/support/FakeSymbolicHotKeys.h"
#include "tests/support/FakeUserDefaults.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr auto shift = modifier::shift;
constexpr auto control = modifier::control;
constexpr auto option = modifier::option;
constexpr auto command = modifier::command;

const MASShortcut controlK(40, control);
constexpr Point left{10, 9}, atHint{150, 9};
constexpr std::uint64_t shiftKey = 56;

class Recorder : public testing::Test {
 protected:
  bool type(std::uint64_t keyCode, std::uint64_t flags) {
    const auto monitor = host.monitor;
    return monitor && monitor({keyCode, flags});
  }
  /// Each cell as "title@right" or "title@center", with "!" where it is on.
  std::vector<std::string> drawn() const {
    std::vector<std::string> cells;
    for (const RecorderCell& cell : view.drawRect()) {
      const bool isRight = cell.alignment == RecorderCell::Alignment::right;
      cells.push_back(cell.title + (isRight ? "@right" : "@center") + (cell.isOn ? "!" : ""));
    }
    return cells;
  }
  void recordAnew(const std::optional<MASShortcut>& old = controlK) {
    view.setShortcutValue(old);
    view.setRecording(true);
    host.announcements.clear();
  }

  FakeKeyboardLayout layout;
  FakeBundle bundle;
  ShortcutKeyNames names{layout, bundle};
  FakeSymbolicHotKeys desktop;
  MASShortcutValidator validator{{.symbolicHotKeys = desktop, .keyNames = names, .bundle = bundle}};
  FakeAlert alert;
  FakeSound sound;
  FakeUserDefaults defaults;
  UserDefaultsController controller{defaults};
  FakeRecorderView host, otherHost;
  MASShortcutView view{{host, validator, names, bundle, alert, sound, &controller}};
  MASShortcutView other{{otherHost, validator, names, bundle, alert, sound, &controller}};
};

TEST_F(Recorder, ShowsItsState) {
  EXPECT_THAT(drawn(), ElementsAre("Record Shortcut@center"));
  view.setRecording(true);
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "Type Shortcut@center!"));
  EXPECT_TRUE(type(shiftKey, shift));
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "⇧@center!"));
  EXPECT_TRUE(type(shiftKey, 0));
  view.mouseEntered();
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "Cancel@center!"));
  view.mouseExited();
  EXPECT_TRUE(type(40, control | option | command));
  EXPECT_THAT(drawn(), ElementsAre("✕@right", "⌃⌥⌘K@center"));
  view.showsDeleteButton = false;
  EXPECT_THAT(drawn(), ElementsAre("⌃⌥⌘K@center"));
  view.setRecording(true);
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "Type New Shortcut@center!"));
  view.mouseEntered();
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "Use Old Shortcut@center!"));
  bundle.strings["Use Old Shortcut"] = "Wie bisher";
  EXPECT_THAT(drawn(), ElementsAre("⎋@right", "Wie bisher@center!"));
}

TEST_F(Recorder, LaysOutByStyle) {
  const struct {
    RecorderStyle style;
    double hintWidth, shift;
  } styles[] = {{RecorderStyle::roundRect, 23, 0},
                {RecorderStyle::texturedRounded, 25, 1},
                {RecorderStyle::rounded, 26, 1},
                {RecorderStyle::flat, 15, 0}};
  view.setShortcutValue(controlK);
  view.setEnabled(false);
  for (const auto& [style, hintWidth, down] : styles) {
    view.setStyle(style);
    const auto cells = view.drawRect();
    ASSERT_EQ(cells.size(), 2);
    EXPECT_EQ(cells[0].frame, (Rect{{0, down}, {160, 19}}));
    EXPECT_EQ(cells[1].frame, (Rect{{0, down}, {160 - hintWidth, 19}}));
    EXPECT_EQ(cells[0].style, style);
    EXPECT_EQ(cells[0].fontSize, 11);
    EXPECT_FALSE(cells[0].isEnabled || cells[1].isEnabled);
    EXPECT_TRUE(view.locationInHintRect({160 - hintWidth, 0}));
    EXPECT_TRUE(view.locationInShortcutRect({160 - hintWidth - 1, 18}));
    EXPECT_FALSE(view.locationInHintRect({160, 5}));
  }
}

TEST_F(Recorder, PassesOnOrConsumesKeys) {
  const struct {
    std::uint64_t key, flags;
    bool isConsumed, goesOn;
    std::optional<MASShortcut> value;
  } keys[] = {
      {48, 0, false, true, controlK},  // Tab
      {48, control | shift, false, true, controlK},
      {51, 0, true, false, std::nullopt},  // Delete
      {117, 0, true, false, std::nullopt},
      {117, control, true, false, MASShortcut(117, control)},
      {53, 0, true, false, controlK},  // Escape
      {53, option, true, false, MASShortcut(53, option)},
      {13, command, false, false, controlK},  // W and Q
      {12, command, false, false, controlK},
      {12, command | shift, true, false, MASShortcut(12, command | shift)},
      {90, control, true, true, controlK},  // a key without a name
      {0, 0, true, true, controlK},         // typing
      {0, option, true, true, controlK},
      {96, 0, true, false, MASShortcut(96, 0)},  // F5
  };
  for (const auto& [key, flags, isConsumed, goesOn, value] : keys) {
    recordAnew();
    EXPECT_EQ(type(key, flags), isConsumed) << key << " " << flags;
    EXPECT_EQ(view.isRecording(), goesOn) << key << " " << flags;
    EXPECT_EQ(view.shortcutValue(), value) << key << " " << flags;
    EXPECT_TRUE(goesOn ? host.isListening() : host.isDeaf());
    view.setRecording(false);
    EXPECT_THAT(host.announcements,
                ElementsAre(Pair(value ? "Shortcut set" : "Shortcut cleared", 90)));
  }
  EXPECT_EQ(sound.beeps, 2) << "for what would be in the way of typing";
}

TEST_F(Recorder, SaysWhyACombinationIsTaken) {
  desktop.list = {{40, 0x1000, true}};
  recordAnew(std::nullopt);
  type(shiftKey, control);
  EXPECT_TRUE(type(40, control));
  ASSERT_EQ(alert.messages.size(), 1);
  EXPECT_EQ(alert.messages[0].messageText, "The key combination ⌃K cannot be used");
  EXPECT_THAT(alert.messages[0].informativeText, testing::StartsWith("This combination cannot"));
  EXPECT_EQ(alert.messages[0].buttonTitle, "OK");
  EXPECT_TRUE(host.isDeaf() && view.isRecording());
  EXPECT_EQ(view.shortcutPlaceholder(), "⌃");
  alert.closed();
  EXPECT_EQ(view.shortcutPlaceholder(), "");
  EXPECT_TRUE(host.isListening());
  EXPECT_EQ(view.shortcutValue(), std::nullopt);

  type(40, control);
  view.setEnabled(false);
  alert.closed();
  EXPECT_TRUE(host.isDeaf()) << "nothing records any more";
}

TEST_F(Recorder, FollowsTheMouse) {
  EXPECT_TRUE(view.mouseDown(atHint));
  EXPECT_TRUE(view.isRecording());
  EXPECT_TRUE(view.mouseDown(left));
  EXPECT_TRUE(view.isRecording());
  EXPECT_TRUE(host.toolTips.empty());
  view.mouseDown(atHint);
  EXPECT_FALSE(view.isRecording());

  view.setShortcutValue(controlK);
  ASSERT_EQ(host.toolTips.size(), 2);
  EXPECT_EQ(host.toolTips[1], host.trackingArea);
  EXPECT_EQ(view.stringForToolTip(0), "Click to record new shortcut");
  EXPECT_EQ(view.stringForToolTip(1), "Delete shortcut");
  EXPECT_EQ(view.stringForToolTip(2), std::nullopt);
  view.mouseDown(left);
  EXPECT_TRUE(view.isRecording());
  view.mouseDown(atHint);
  EXPECT_EQ(view.shortcutValue(), controlK);
  view.mouseDown(atHint);
  EXPECT_EQ(view.shortcutValue(), std::nullopt);

  view.setEnabled(false);
  EXPECT_FALSE(view.mouseDown(left));
  EXPECT_EQ(host.trackingArea, std::nullopt);
}

TEST_F(Recorder, IsOneAtATime) {
  view.setRecording(true);
  other.setRecording(true);
  EXPECT_FALSE(view.isRecording());
  EXPECT_TRUE(host.isDeaf() && otherHost.isListening());
  EXPECT_EQ(host.announcements.size(), 1);

  otherHost.resignKeyObserver();
  EXPECT_TRUE(!other.isRecording() && otherHost.isDeaf());

  other.setRecording(true);
  view.setEnabled(false);
  view.setRecording(true);
  EXPECT_FALSE(view.isRecording() || other.isRecording());
  view.setEnabled(true);
  view.setRecording(true);
  view.setEnabled(false);
  EXPECT_TRUE(!view.isRecording() && host.isDeaf());
  {
    FakeRecorderView thirdHost;
    MASShortcutView third({thirdHost, validator, names, bundle, alert, sound});
    third.setRecording(true);
  }
  other.setRecording(true);
  EXPECT_TRUE(otherHost.isListening()) << "one that is gone neither records nor listens";
}

TEST_F(Recorder, IsAButtonToScreenReaders) {
  EXPECT_EQ(view.accessibilityLabel(), "Empty keyboard shortcut");
  view.setShortcutValue(MASShortcut(36, command));
  EXPECT_EQ(view.accessibilityLabel(), "⌘↩ keyboard shortcut");
  EXPECT_THAT(view.accessibilityHelp(), testing::EndsWith("delete to clear an existing shortcut."));
  EXPECT_TRUE(view.accessibilityPerformPress());
  EXPECT_FALSE(view.accessibilityPerformPress());
  EXPECT_TRUE(view.isRecording());
}

TEST_F(Recorder, IsBoundToUserDefaults) {
  const ShortcutArchiveTransformer archives;
  defaults.setObject(archives.reverseTransformedValue(controlK), "apply");
  int changes = 0;
  view.shortcutValueChange = [&](MASShortcutView&) { ++changes; };
  EXPECT_EQ(view.associatedUserDefaultsKey(), std::nullopt);
  view.setAssociatedUserDefaultsKey("apply");
  EXPECT_EQ(view.associatedUserDefaultsKey(), "apply");
  EXPECT_EQ(view.shortcutValue(), controlK);
  view.setShortcutValue(MASShortcut(0, command));
  EXPECT_EQ(archives.transformedValue(defaults.objectForKey("apply")), MASShortcut(0, command));
  defaults.setObject(std::nullopt, "apply");
  EXPECT_EQ(view.shortcutValue(), std::nullopt);
  EXPECT_EQ(changes, 3);

  view.setAssociatedUserDefaultsKeyWithTransformerName("other", MASDictionaryTransformer::name);
  EXPECT_FALSE(defaults.stored->contains("other")) << "what was read is not written";
  view.setShortcutValue(controlK);
  EXPECT_EQ(*defaults.objectForKey("other"),
            Value(Dictionary{{"keyCode", 40}, {"modifierFlags", 0x40000}}));
  EXPECT_EQ(defaults.objectForKey("apply"), std::nullopt) << "bound no more";
  view.setAssociatedUserDefaultsKey(std::nullopt);
  view.setShortcutValue(std::nullopt);
  EXPECT_TRUE(defaults.stored->contains("other"));
}

/// Shows defaults, but writes none.
class OneWayTransformer : public MASDictionaryTransformer {
 public:
  bool allowsReverseTransformation() const override { return false; }
};

TEST(ShortcutBindings, SayWhatIsMissing) {
  LogCapture log;
  const OneWayTransformer oneWay;
  ShortcutBinding({"shortcutValue", nullptr, "values.key", {&oneWay, {}}}, {}).propagateValue({});
  FakeUserDefaults defaults;
  UserDefaultsController controller(defaults);
  ShortcutBinding({"shortcutValue", &controller, {}, {}}, {}).propagateValue({});
  const std::string method = "-[MASShortcutView propagateValue:forBinding:]";
  EXPECT_THAT(
      log.lines,
      ElementsAre(
          "WARNING: binding \"shortcutValue\" has value transformer, but it doesn't allow "
          "reverse transformations in " +
              method,
          "ERROR: NSObservedObjectKey was nil for binding \"shortcutValue\" in " + method,
          "ERROR: NSObservedKeyPathKey was nil for binding \"shortcutValue\" in " + method));
}

}  // namespace
}  // namespace qf
