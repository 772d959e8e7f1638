// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <QRegularExpression>
#include <csignal>
#include <thread>

#include "foundation/Text.h"
#include "hosts/linux/keys/XkbKeyboardLayout.h"
#include "tests/desktop/Keyboard.h"
#include "tests/hosts/keys/PressCounter.h"

namespace qf {
namespace {

using desktop::Keyboard;
using desktop::output;
using desktop::Program;
using desktop::until;

constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t keyJ = 38;
constexpr auto control = hotKeyModifier::control;
constexpr auto option = hotKeyModifier::option;

// Of the X protocol.
constexpr std::uint16_t controlMask = 4, lockMask = 2, altMask = 8, numLockMask = 16;

void setLayout(const QStringList& arguments) {
  output("setxkbmap", arguments);
  settle();
}

/// As on a keyboard that has each in the other's place.
void swapKeys(const QString& one, const QString& other) {
  const QString display = qEnvironmentVariable("DISPLAY");
  QString keymap = output("xkbcomp", {"-w0", display, "-"});
  const auto line = [&](const QString& key) {
    const QRegularExpression form("(?<=" + key + " = )\\d+(?=;)");
    return form.match(keymap);
  };
  const auto first = line(one), second = line(other);
  keymap.replace(second.capturedStart(), second.capturedLength(), first.captured());
  keymap.replace(first.capturedStart(), first.capturedLength(), second.captured());
  output("xkbcomp", {"-w0", "-", display}, keymap.toUtf8());
}

class HotKeysOnX : public testing::Test {
 protected:
  ~HotKeysOnX() override { output("setxkbmap", {"us"}); }

  Keyboard keyboard;
  PressCounter counter;
};

TEST_F(HotKeysOnX, LeaveOtherKeysAndAltGrToTyping) {
  setLayout({"de"});
  counter.add(keyK, control, 1);
  counter.add(keyK, control | option, 2);
  keyboard.press({KEY_LEFTCTRL, KEY_RIGHTALT, KEY_K});
  keyboard.press({KEY_LEFTALT, KEY_K});
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_LEFTSHIFT, KEY_K});
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_L});
  settle();
  EXPECT_TRUE(counter.presses.empty());
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(counter.heard(2));
}

TEST_F(HotKeysOnX, FireOnceHoweverLongTheyAreHeld) {
  counter.add(keyK, control, 1);
  keyboard.down(KEY_LEFTCTRL);
  keyboard.down(KEY_K);
  settle(std::chrono::milliseconds(1000));  // repeats begin after 660 ms
  EXPECT_EQ(counter.presses[1], 1);
  // The next press of the key, with Control still held, is one of its own.
  keyboard.up(KEY_K);
  keyboard.down(KEY_K);
  EXPECT_TRUE(counter.heard(1, 2));
  keyboard.up(KEY_K);
  keyboard.up(KEY_LEFTCTRL);
  for (int press = 0; press < 20; ++press) keyboard.press({KEY_LEFTCTRL, KEY_K});
  EXPECT_TRUE(counter.heard(1, 22)) << counter.presses[1];
}

/// A window with the input, which notes how it loses it and has it back.
class FocusedWindow {
 public:
  FocusedWindow() : _connection(xcb_connect(nullptr, nullptr)) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data;
    const xcb_window_t window = xcb_generate_id(_connection);
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 9, 9, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(_connection, window);
    xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    EXPECT_TRUE(hears(XCB_FOCUS_IN, XCB_NOTIFY_MODE_NORMAL));
  }
  ~FocusedWindow() { xcb_disconnect(_connection); }

  /// Waits for the event without letting anything else of this thread run.
  bool hears(std::uint8_t type, std::uint8_t mode) {
    xcb_flush(_connection);
    for (int wait = 0; wait < 200; ++wait) {
      while (xcb_generic_event_t* event = xcb_poll_for_event(_connection)) {
        const auto& focus = *reinterpret_cast<xcb_focus_in_event_t*>(event);
        const bool isIt = focus.response_type == type && focus.mode == mode;
        std::free(event);
        if (isIt) return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

 private:
  xcb_connection_t* _connection;
};

TEST_F(HotKeysOnX, GiveTheInputBackWhileTheyAreHeld) {
  counter.add(keyK, control, 1);
  FocusedWindow window;
  keyboard.down(KEY_LEFTCTRL);
  keyboard.down(KEY_K);
  EXPECT_TRUE(window.hears(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB));
  EXPECT_TRUE(window.hears(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB)) << "also while we are busy";
  // So it is with every repeat.
  EXPECT_TRUE(window.hears(XCB_FOCUS_OUT, XCB_NOTIFY_MODE_GRAB));
  EXPECT_TRUE(window.hears(XCB_FOCUS_IN, XCB_NOTIFY_MODE_UNGRAB));
  keyboard.up(KEY_K);
  keyboard.up(KEY_LEFTCTRL);
  EXPECT_TRUE(counter.heard(1));
}

TEST_F(HotKeysOnX, SayWhoHoldsACombination) {
  Keyboard other;
  ASSERT_TRUE(other.grab(KEY_K, controlMask | lockMask));
  EXPECT_EQ(counter.add(keyK, control, 1), HotKeyStatus::eventHotKeyExists);
  EXPECT_EQ(counter.add(keyJ, control, 2), HotKeyStatus::noError);
  const Availability all = counter.hotKeys.availability();
  EXPECT_FALSE(all.isAvailable);
  EXPECT_EQ(all.reason, "another program holds Ctrl+K; choose other keys here or there");
  EXPECT_EQ(counter.hotKeys.availability(keyK, control).reason, all.reason);
  EXPECT_TRUE(counter.hotKeys.availability(keyJ, control).isAvailable);
  EXPECT_TRUE(other.grab(KEY_K, controlMask)) << "nothing of a refused combination is kept";

  other.ungrab(KEY_K, controlMask | lockMask);
  other.ungrab(KEY_K, controlMask);
  EXPECT_EQ(counter.add(keyK, control, 1), HotKeyStatus::noError);
  EXPECT_TRUE(counter.hotKeys.availability().isAvailable);
  EXPECT_EQ(counter.add(500, control, 3), HotKeyStatus::eventHotKeyInvalid);
  EXPECT_FALSE(counter.hotKeys.availability().isAvailable);
  counter.hotKeys.forgetRefusals();
  EXPECT_TRUE(counter.hotKeys.availability().isAvailable);
}

TEST_F(HotKeysOnX, KeepWhatIsRegisteredAgain) {
  Keyboard other;
  counter.add(keyK, control, 1);
  counter.add(keyK, control, 2);
  counter.drop(1);
  keyboard.press({KEY_LEFTCTRL, KEY_K});
  EXPECT_TRUE(counter.heard(2)) << "an equal registration stays when another is dropped";
  counter.drop(2);
  EXPECT_FALSE(other.grab(KEY_K, controlMask)) << "not let go before the run loop turns";
  counter.add(keyK, control, 3);
  settle();
  EXPECT_FALSE(other.grab(KEY_K, controlMask));
  counter.drop(3);
  settle();
  for (const std::uint16_t locks : {0, +lockMask, +numLockMask, lockMask | numLockMask}) {
    EXPECT_TRUE(other.grab(KEY_K, controlMask | locks)) << locks;
  }
  EXPECT_EQ(counter.presses[1], 0);
}

TEST_F(HotKeysOnX, LoseNoPressWhileTheyAreRegisteredAgain) {
  counter.add(keyK, control, 1);
  keyboard.press({KEY_LEFTCTRL, KEY_K});  // on its way
  counter.drop(1);
  counter.add(keyK, control, 2);
  EXPECT_TRUE(counter.heard(2));
}

TEST_F(HotKeysOnX, NameKeysByTheLatinLayout) {
  const XkbKeyboardLayout layout(counter.hotKeys.keyboard());
  const auto names = [&](std::initializer_list<std::uint16_t> keyCodes) {
    std::string result;
    for (const auto keyCode : keyCodes) result += *layout.translateKey(keyCode) + " ";
    return result;
  };
  // The places of Q, Z, Y, ; and ` on a US keyboard.
  const auto placeNames = [&] { return names({12, 6, 16, 41, 50}); };
  const struct {
    QStringList layout;
    const char* expected;
  } layouts[] = {{{"us"}, "q z y ; ` "}, {{"de"}, "q y z ö ^ "},
                 {{"fr"}, "a w y m ² "}, {{"us", "-variant", "dvorak"}, "' ; f s ` "},
                 {{"ru"}, "q z y ; ` "}, {{"ru,de"}, "q y z ö ^ "}};
  for (const auto& [arguments, expected] : layouts) {
    output("setxkbmap", arguments);
    EXPECT_TRUE(until([&] { return placeNames() == expected; }))
        << arguments.join(' ').toStdString() << ": " << placeNames();
  }

  EXPECT_EQ(names({90}), "F20 ");

  setLayout({"us,fr,ru"});
  EXPECT_EQ(names({12}), "q ");
  keyboard.lockLayout(1);
  EXPECT_TRUE(until([&] { return names({12}) == "a "; }));
  keyboard.lockLayout(2);
  settle();
  EXPECT_EQ(names({12}), "a ") << "the Latin layout that was active last";
  EXPECT_EQ(layout.keyCodeForHardwareCode(KEY_Q + 8), 12);
  keyboard.lockLayout(0);
}

TEST_F(HotKeysOnX, StayWithTheirKeysWhenTheLayoutChanges) {
  counter.add(keyK, control | option, 1);
  int count = 0;
  for (const char* layout : {"de", "ru", "us,ru"}) {
    setLayout({layout});
    keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
    EXPECT_TRUE(counter.heard(1, ++count)) << layout;
  }
  keyboard.lockLayout(1);
  settle();
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(counter.heard(1, ++count));
  keyboard.lockLayout(0);
  // Alt and Control change places on the keyboard: the combination follows what they mean.
  setLayout({"us", "-option", "ctrl:swap_lalt_lctl"});
  keyboard.press({KEY_LEFTALT, KEY_LEFTCTRL, KEY_K});
  EXPECT_TRUE(counter.heard(1, ++count));
  setLayout({"us", "-option", ""});
}

TEST_F(HotKeysOnX, LostToAnotherProgramAreWonBackWhenTheyAreRegisteredAgain) {
  const auto state = [this] { return counter.hotKeys.availability(keyK, control).isAvailable; };
  const auto followSettings = [this] {
    counter.drop(1);
    counter.hotKeys.forgetRefusals();
    return counter.add(keyK, control, 1);
  };
  counter.add(keyK, control, 1);
  Keyboard other;
  ASSERT_TRUE(other.grab(KEY_J, controlMask));
  swapKeys("<AC07>", "<AC08>");  // J and K
  EXPECT_TRUE(until([&] { return !state(); }));

  EXPECT_EQ(followSettings(), HotKeyStatus::eventHotKeyExists);
  settle();
  EXPECT_FALSE(state());
  other.ungrab(KEY_J, controlMask);
  EXPECT_EQ(followSettings(), HotKeyStatus::noError);
  settle();
  EXPECT_TRUE(state());
  keyboard.press({KEY_LEFTCTRL, KEY_J});
  EXPECT_TRUE(counter.heard(1));
}

TEST(HotKeysOnWayland, SayWhereTheyWork) {
  PressCounter counter;
  EXPECT_TRUE(counter.hotKeys.availability().isAvailable);
  qputenv("WAYLAND_DISPLAY", "wayland-0");
  EXPECT_FALSE(counter.hotKeys.availability().isAvailable);
  qunsetenv("WAYLAND_DISPLAY");
}

TEST(HotKeysOfALostServer, SayWhy) {
  const desktop::XServer server;
  PressCounter counter(server.display);
  ASSERT_EQ(counter.add(keyK, control, 1), HotKeyStatus::noError);
  server.signal(SIGKILL);
  EXPECT_TRUE(until([&] { return !counter.hotKeys.availability().isAvailable; }));
  EXPECT_EQ(counter.add(keyJ, control, 2), HotKeyStatus::eventHotKeyInvalid);
  counter.drop(1);
  settle();

  PressCounter blind(":99999");
  EXPECT_FALSE(blind.hotKeys.availability().isAvailable);
  EXPECT_FALSE(blind.hotKeys.installEventHandler([](const HotKeyEvent&) {}));
  EXPECT_EQ(blind.add(keyK, control, 1), HotKeyStatus::eventHotKeyInvalid);
  EXPECT_FALSE(XkbKeyboardLayout(blind.hotKeys.keyboard()).translateKey(0));
}

TEST(HotKeysOfAStoppedServer, AreNotWaitedForLong) {
  const desktop::XServer server;
  PressCounter counter(server.display);
  counter.add(keyK, control, 1);
  server.signal(SIGSTOP);
  const auto start = std::chrono::steady_clock::now();
  for (std::uint32_t id = 2; id < 20; ++id) {
    EXPECT_NE(counter.add(keyJ, id << 8, id), HotKeyStatus::noError);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1500));
  server.signal(SIGCONT);
  EXPECT_TRUE(until([&] { return counter.add(keyJ, control, 30) == HotKeyStatus::noError; }));
  counter.hotKeys.forgetRefusals();
}

}  // namespace
}  // namespace qf
