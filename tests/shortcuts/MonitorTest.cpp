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

class Monitor : public testing::Test {
 protected:
  MASShortcutMonitor::Action note(const char* text) {
    return [this, text] { done.emplace_back(text); };
  }
  void press(const MASShortcut& shortcut) {
    keys.press(shortcut.carbonKeyCode(), shortcut.carbonFlags());
    queue.run();
  }

  FakeHotKeys keys;
  FakeMainQueue queue;
  std::unique_ptr<MASShortcutMonitor> monitor = MASShortcutMonitor::init(keys, queue);
  std::vector<std::string> done;
  const MASShortcut a{0, modifier::control}, k{40, modifier::control};
};

TEST_F(Monitor, QueuesTheActionOfAPress) {
  EXPECT_TRUE(monitor->registerShortcut(a, note("a")));
  EXPECT_TRUE(monitor->registerShortcut(k, note("k")));
  EXPECT_TRUE(monitor->registerShortcut(k, note("k2")));
  EXPECT_EQ(keys.registered.size(), 2u) << "an equal shortcut replaces the one before";
  keys.press(k.carbonKeyCode(), k.carbonFlags());
  EXPECT_THAT(done, ElementsAre()) << "never inside the event";
  queue.run();
  press(a);
  EXPECT_THAT(done, ElementsAre("k2", "a"));

  EXPECT_TRUE(monitor->registerShortcut(a, {}));
  press(a);
  EXPECT_EQ(done.size(), 2u);
}

TEST_F(Monitor, LeavesForeignEventsAlone) {
  monitor->registerShortcut(a, note("a"));
  const HotKeyID id = keys.registered.begin()->second.second;
  EXPECT_EQ(id.signature, 0x4D415353u);
  keys.handler({.eventClass = fourCharCode("mous"), .directObject = id});
  keys.handler({.directObject = std::nullopt});
  keys.handler({.directObject = HotKeyID{fourCharCode("ELSE"), id.id}});
  keys.handler({.directObject = HotKeyID{id.signature, id.id + 1}});
  queue.run();
  EXPECT_THAT(done, ElementsAre());
  keys.handler({.kind = 6, .directObject = id});
  queue.run();
  EXPECT_THAT(done, ElementsAre("a"));
}

TEST_F(Monitor, KeepsTheOldRegistrationWhereTheNewIsRefused) {
  monitor->registerShortcut(a, note("a"));
  const std::uint32_t first = keys.registered.begin()->second.second.id;
  keys.held.insert({a.carbonKeyCode(), a.carbonFlags()});
  EXPECT_FALSE(monitor->registerShortcut(a, note("new")));
  EXPECT_TRUE(monitor->isShortcutRegistered(a));
  press(a);
  EXPECT_THAT(done, ElementsAre("a"));
  monitor->registerShortcut(k, {});
  EXPECT_EQ(keys.registered.rbegin()->second.second.id, first + 2) << "numbers are not used again";
}

TEST_F(Monitor, Unregisters) {
  monitor->registerShortcut(a, note("a"));
  monitor->registerShortcut(k, note("k"));
  monitor->unregisterShortcut(std::nullopt);
  monitor->unregisterShortcut(MASShortcut(1, 0));
  EXPECT_EQ(keys.registered.size(), 2u);
  monitor->unregisterShortcut(a);
  EXPECT_FALSE(monitor->isShortcutRegistered(a));
  EXPECT_EQ(keys.registered.size(), 1u);
  monitor->unregisterAllShortcuts();
  EXPECT_FALSE(monitor->isShortcutRegistered(k));
  EXPECT_TRUE(keys.registered.empty());
  monitor->registerShortcut(k, {});
  monitor.reset();
  EXPECT_TRUE(keys.registered.empty());
  EXPECT_FALSE(keys.handler);
  keys.delivers = false;
  EXPECT_EQ(MASShortcutMonitor::init(keys, queue), nullptr);
}

class Binder : public Monitor {
 protected:
  static std::optional<Value> stored(const MASShortcut& shortcut) {
    return ShortcutArchiveTransformer().reverseTransformedValue(shortcut);
  }

  FakeUserDefaults defaults;
  UserDefaultsController controller{defaults};
  MASShortcutBinder binder{monitor.get(), controller};
  int presses = 0;
  const FakeHotKeys::Combination pressedA{0, 0x1000}, pressedK{40, 0x1000};
};

TEST_F(Binder, FollowsTheDefault) {
  binder.registerDefaultShortcuts({{"clean", a}});
  binder.bindShortcutWithDefaultsKey("clean", [this] { ++presses; });
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedA));
  EXPECT_EQ(*binder.valueForUndefinedKey("clean"), a);

  controller.setValue(stored(k), "values.clean");
  EXPECT_THAT(keys.combinations(), ElementsAre(pressedK));
  press(k);
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
  press(k);
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
