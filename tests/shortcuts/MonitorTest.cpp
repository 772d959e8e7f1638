// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "host/EventState.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "tests/support/FakeHotKeys.h"
#include "tests/support/FakeMainQueue.h"

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

}  // namespace
}  // namespace qf
