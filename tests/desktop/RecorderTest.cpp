// SPDX-License-Identifier: Apache-2.0
// Recorders in a window of their own, with real keys and clicks.
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Bell.h"
#include "tests/desktop/Keyboard.h"
#include "tests/hosts/keys/PressCounter.h"

namespace qf::desktop {
namespace {

using testing::EndsWith;
using Keys = std::initializer_list<std::uint16_t>;

// Of AT-SPI.
constexpr int focusable = 11, focused = 12, pressed = 20;
constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t controlAndOption = hotKeyModifier::control | hotKeyModifier::option;

/// What a screen reader is asked to say, as "text, address of the one who asks".
class Announcements : public QObject {
  Q_OBJECT

 public:
  Announcements() {
    QDBusInterface locator("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
    const QDBusReply<QString> address = locator.call("GetAddress");
    QDBusConnection::connectToBus(address.value(), "announcements")
        .connect("", "", "org.a11y.atspi.Event.Object", "Announcement", this,
                 SLOT(hear(QDBusMessage)));
  }
  QStringList heard;

 private slots:
  void hear(const QDBusMessage& message) {
    if (message.signature() != "siiva{sv}") return;
    heard << message.arguments()[3].value<QDBusVariant>().variant().toString() + ", " +
                 message.service() + message.path();
  }
};

class Recorders : public testing::Test {
 protected:
  Recorders() {
    EXPECT_TRUE(until([this] { return isFocused(named("", "text")); }));
    firstPlace = recorder(0).screenExtents();
    secondPlace = recorder(1).screenExtents();
  }

  std::optional<Accessible> named(const QString& name, const QString& role) const {
    const auto application = Accessible::application(window.processIdentifier());
    if (!application) return std::nullopt;
    return application->find([&](const Accessible& node) {
      return node.role() == role && (name.isEmpty() || node.name() == name);
    });
  }
  static bool isFocused(const std::optional<Accessible>& node) {
    return node && node->hasState(focused);
  }
  Accessible recorder(int index) const {
    std::vector<Accessible> found;
    const auto collect = [&](const Accessible& node) {
      if (node.name().endsWith("keyboard shortcut")) found.push_back(node);
      return false;
    };
    Accessible::application(window.processIdentifier())->find(collect);
    return found.at(static_cast<std::size_t>(index));
  }
  bool records(int index) const { return recorder(index).hasState(pressed); }
  bool comesToRecord(int index, bool isRecording = true) const {
    return until([&] { return records(index) == isRecording; }, 3s);
  }
  /// What the window has printed of late.
  bool says(const QString& line) {
    const QString expected = line + "\n";
    const bool isSaid = until([&] { return window.printed().mid(read).contains(expected); }, 3s);
    if (!isSaid) std::cerr << "said: " << window.printed().mid(read).toStdString() << '\n';
    read = window.printed().size();
    return isSaid;
  }
  bool saysNothing() {
    return !until([&] { return window.printed().size() > read; }, 300ms);
  }
  void clickFirst() {
    mouse::click(firstPlace.center());
    EXPECT_TRUE(comesToRecord(0));
  }
  /// Whether another program could have the keyboard now.
  bool isKeyboardFree() const {
    return until([this] { return keyboard.canTakeAll(); }, 3s);
  }

  Announcements announcements;
  Program window{Agent::builtProgram("recorder_window"), {}};
  mutable Keyboard keyboard;
  QRect firstPlace, secondPlace;
  qsizetype read = 0;
};

TEST_F(Recorders, HoldTheKeyboardWhileTheyRecord) {
  PressCounter agent;  // as the agent does, and a window manager
  ASSERT_EQ(agent.add(keyK, controlAndOption, 1), HotKeyStatus::noError);
  clickFirst();
  EXPECT_FALSE(keyboard.canTakeAll());
  for (const std::uint16_t key : Keys{KEY_LEFTCTRL, KEY_LEFTALT, KEY_K}) keyboard.down(key);
  EXPECT_TRUE(says("first ⌃⌥K"));
  EXPECT_TRUE(comesToRecord(0, false));
  settle(1s);  // repeats begin after 660 ms
  EXPECT_EQ(agent.presses[1], 0) << "neither the press nor its repeats";
  EXPECT_TRUE(saysNothing()) << window.printed().mid(read).toStdString();
  for (const std::uint16_t key : Keys{KEY_K, KEY_LEFTALT, KEY_LEFTCTRL}) keyboard.up(key);
  EXPECT_TRUE(isKeyboardFree());
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(agent.heard(1));
  agent.drop(1);
  settle();
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(says("Ctrl+Alt+K")) << "the window's own shortcut, which records no more";
}

/// Before the window starts, so that it knows of no other.
struct GermanKeyboard {
  GermanKeyboard() { output("setxkbmap", {"de"}); }
  ~GermanKeyboard() { output("setxkbmap", {"us"}); }
};
class GermanRecorders : GermanKeyboard, public Recorders {};

TEST_F(GermanRecorders, GoByThePlaceOfTheKeyAndNotByAltGr) {
  Bell bell;
  clickFirst();
  keyboard.press({KEY_RIGHTALT, KEY_Q});
  EXPECT_TRUE(bell.rings(2s)) << "what AltGr types is typing";
  keyboard.press({KEY_LEFTCTRL, KEY_RIGHTALT, KEY_Y});
  EXPECT_TRUE(says("first ⌃Z"));
  clickFirst();
  keyboard.press({KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTMETA, KEY_CAPSLOCK, KEY_APOSTROPHE});
  EXPECT_TRUE(says("first ⌥⇧⌘Ä"));
  keyboard.press({KEY_CAPSLOCK});
  clickFirst();
  keyboard.press({KEY_F5});
  EXPECT_TRUE(says("first F5"));
}

TEST_F(Recorders, LetCloseQuitAndTabPass) {
  for (const auto& [key, name] : {std::pair(KEY_W, "Ctrl+W"), std::pair(KEY_Q, "Ctrl+Q")}) {
    clickFirst();
    keyboard.press({KEY_LEFTCTRL, static_cast<std::uint16_t>(key)});
    EXPECT_TRUE(says(name));
    EXPECT_TRUE(comesToRecord(0, false));
    EXPECT_TRUE(isKeyboardFree());
  }
  clickFirst();
  keyboard.press({KEY_TAB});
  EXPECT_TRUE(until([&] { return recorder(1).hasState(focused); }, 3s));
  EXPECT_TRUE(records(0));
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_Q});
  EXPECT_TRUE(says("first ⌃⇧Q"));
}

TEST_F(Recorders, LetGoOfTheKeyboard) {
  clickFirst();
  mouse::click(secondPlace.center());
  EXPECT_TRUE(comesToRecord(1) && !records(0));
  keyboard.press({KEY_ESC});
  EXPECT_TRUE(comesToRecord(1, false) && isKeyboardFree());

  clickFirst();
  named("Hide", "push button")->press();
  EXPECT_TRUE(isKeyboardFree()) << "what is hidden records nothing";
  mouse::click(recorder(1).screenExtents().center());  // it has moved up
  EXPECT_TRUE(until([&] { return !keyboard.canTakeAll(); }, 3s));
  const Program another(Agent::builtProgram("recorder_window"), {});
  EXPECT_TRUE(isKeyboardFree()) << "another window has it";
  EXPECT_TRUE(saysNothing());
}

TEST_F(Recorders, SayWhatIsTaken) {
  clickFirst();
  keyboard.press({KEY_LEFTCTRL, KEY_F});
  const auto text = [this] { return named("The key combination Ctrl+F cannot be used", "label"); };
  ASSERT_TRUE(until([&] { return text().has_value(); }, 3s));
  EXPECT_TRUE(
      named("This shortcut cannot be used because it is already used by the menu item "
            "‘Find <b> & Go’.",
            "label"));
  EXPECT_TRUE(until([&] { return isFocused(named("OK", "push button")); }, 3s));
  EXPECT_TRUE(isKeyboardFree());
  keyboard.press({KEY_ENTER});
  EXPECT_TRUE(until([&] { return !keyboard.canTakeAll(); }, 3s)) << "it goes on";
  keyboard.press({KEY_LEFTCTRL, KEY_G});
  EXPECT_TRUE(says("first ⌃G"));
}

TEST_F(Recorders, AreButtonsToKeyboardAndScreenReader) {
  const Accessible first = recorder(0);
  EXPECT_EQ(first.name(), "Empty keyboard shortcut");
  EXPECT_EQ(first.role(), "push button");
  EXPECT_THAT(first.description().toStdString(), EndsWith("to clear an existing shortcut."));
  EXPECT_TRUE(first.hasState(focusable) && first.isEnabled() && !first.hasState(pressed));
  keyboard.press({KEY_LEFTSHIFT, KEY_TAB});
  EXPECT_TRUE(until([&] { return recorder(1).hasState(focused); }, 3s));
  keyboard.press({KEY_SPACE});
  EXPECT_TRUE(comesToRecord(1));
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(says("second ⌃⌥K"));
  EXPECT_EQ(recorder(1).name(), "Ctrl+Alt+K keyboard shortcut");

  first.press();
  EXPECT_TRUE(comesToRecord(0));
  keyboard.press({KEY_BACKSPACE});
  EXPECT_TRUE(says("first none"));
  const QStringList expected{"Shortcut set, " + recorder(1).address(),
                             "Shortcut cleared, " + first.address()};
  EXPECT_TRUE(until([&] { return announcements.heard == expected; }, 3s))
      << announcements.heard.join('\n').toStdString();
}

}  // namespace
}  // namespace qf::desktop

#include "RecorderTest.moc"
