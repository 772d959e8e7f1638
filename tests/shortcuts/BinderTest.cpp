// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "host/EventState.h"
#include "shortcuts/MASShortcutBinder.h"
#include "shortcuts/ShortcutArchiveTransformer.h"
#include "tests/support/FakeHotKeys.h"
#include "tests/support/FakeMainQueue.h"
#include "tests/support/FakeUserDefaults.h"

namespace qf {
namespace {

using testing::ElementsAre;

class Binder : public testing::Test {
 protected:
  static std::optional<Value> stored(const MASShortcut& shortcut) {
    return ShortcutArchiveTransformer().reverseTransformedValue(shortcut);
  }

  FakeHotKeys keys;
  FakeMainQueue queue;
  FakeUserDefaults defaults;
  UserDefaultsController controller{defaults};
  std::unique_ptr<MASShortcutMonitor> monitor = MASShortcutMonitor::init(keys, queue);
  MASShortcutBinder binder{monitor.get(), controller};
  int presses = 0;
  const MASShortcut a{0, modifier::control}, k{40, modifier::control};
  const FakeHotKeys::Combination pressedA{0, 0x1000}, pressedK{40, 0x1000};
};

TEST_F(Binder, FollowsTheDefault) {
  binder.registerDefaultShortcuts({{"clean", a}});
  binder.bindShortcutWithDefaultsKey("clean", [this] { ++presses; });
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedA));
  EXPECT_EQ(*binder.valueForUndefinedKey("clean"), a);

  controller.setValue(stored(k), "values.clean");
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedK));
  keys.press(40, 0x1000);
  queue.run();
  EXPECT_EQ(presses, 1);

  defaults.setObject(Value("no shortcut"), "clean");
  EXPECT_THAT(keys.combinations(), ElementsAre());
  EXPECT_EQ(*binder.valueForUndefinedKey("clean"), std::nullopt);
  defaults.setObject(std::nullopt, "clean");
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedA)) << "the registered default again";

  binder.breakBindingWithDefaultsKey("clean");
  EXPECT_FALSE(binder.isRegisteredAction("clean"));
  defaults.setObject(stored(k), "clean");
  EXPECT_THAT(keys.combinations(), ElementsAre());
}

TEST_F(Binder, BindsByOtherTransformersAndAnew) {
  binder.bindingOptions.valueTransformerName = "MASDictionaryTransformer";
  binder.bindShortcutWithDefaultsKey("clean", {});
  binder.bindShortcutWithDefaultsKey("clean", [this] { ++presses; });
  defaults.setObject(Value(Dictionary{{"keyCode", 40}, {"modifierFlags", modifier::control}}),
                     "clean");
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedK));
  keys.press(40, 0x1000);
  queue.run();
  EXPECT_EQ(presses, 1);
}

TEST_F(Binder, KnowsBoundKeysOnly) {
  EXPECT_FALSE(binder.valueForUndefinedKey("clean"));
  EXPECT_TRUE(binder.setValueForUndefinedKey(a, "clean"));
  binder.breakBindingWithDefaultsKey("clean");
  EXPECT_TRUE(keys.registered.empty());
  EXPECT_EQ(controller.valueForKeyPath("clean"), std::nullopt);
}

TEST_F(Binder, LetsAnObserverChangeWhatIsObserved) {
  UserDefaultsController::ObserverID own = 0;
  int calls = 0;
  own = controller.addObserver("values.x", [&](const auto& value) {
    ++calls;
    if (value) controller.removeObserver(own);
  });
  controller.addObserver("values.x", [&](const auto& value) {
    if (value) controller.setValue(std::nullopt, "values.x");
  });
  controller.setValue(Value(1), "values.x");
  controller.setValue(Value(2), "values.x");
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(controller.valueForKeyPath("values.x"), std::nullopt);
}

}  // namespace
}  // namespace qf
