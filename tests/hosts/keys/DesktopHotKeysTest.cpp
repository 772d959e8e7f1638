// SPDX-License-Identifier: Apache-2.0
// The services that publish the desktops' shortcuts, as the desktops ship them.
#include <gmock/gmock.h>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>

#include "hosts/linux/keys/DesktopHotKeys.h"
#include "hosts/linux/keys/DesktopShortcuts.h"
#include "tests/hosts/keys/PressCounter.h"

namespace qf {
namespace {

using desktop::output;
using desktop::Program;
using desktop::until;
using testing::Contains;
using testing::Not;

constexpr auto control = hotKeyModifier::control;
constexpr auto option = hotKeyModifier::option;
constexpr auto shift = hotKeyModifier::shift;
constexpr auto command = hotKeyModifier::command;

class DesktopLists : public testing::Test {
 protected:
  static testing::Matcher<std::vector<SymbolicHotKey>> has(std::uint32_t code,
                                                           std::uint32_t modifiers) {
    return Contains(SymbolicHotKey{code, modifiers, true});
  }
  /// Of a service whose name is its interface's, whatever its case.
  static void call(const QString& interface, const QString& path, const QString& method,
                   const QVariantList& arguments) {
    const QString service = interface.startsWith("org.kde") ? interface.toLower() : interface;
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(message);
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
  }
  static bool isOnBus(const QString& name) {
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
  }

  PressCounter counter;
  DesktopHotKeys desktop{QDBusConnection::sessionBus(), counter.hotKeys.keyboard()};
};

TEST_F(DesktopLists, AreMissingWhereNoDesktopRuns) {
  EXPECT_FALSE(desktop.copySymbolicHotKeys());
  EXPECT_THAT(desktop.availability().reason, testing::HasSubstr("no desktop here"));
}

TEST_F(DesktopLists, ComeFromXfce) {
  Program service("sh", {"-c", "exec /usr/lib/*/xfce4/xfconf/xfconfd"});
  ASSERT_TRUE(until([] { return isOnBus("org.xfce.Xfconf"); }));
  const auto set = [](const QString& property, const QVariant& value) {
    call("org.xfce.Xfconf", "/org/xfce/Xfconf", "SetProperty",
         {"xfce4-keyboard-shortcuts", property, QVariant::fromValue(QDBusVariant(value))});
  };
  set("/commands/default/<Primary><Alt>t", "terminal");
  set("/xfwm4/default/<Alt>F4", "close_window_key");
  set("/xfwm4/custom/<Shift><Super>Page_Up", "raise_window_key");
  auto list = desktop.copySymbolicHotKeys();
  ASSERT_TRUE(list);
  EXPECT_THAT(*list, has(17, control | option));
  EXPECT_THAT(*list, has(118, option));
  EXPECT_THAT(*list, Not(has(116, shift | command)));
  set("/xfwm4/custom/override", true);
  list = desktop.copySymbolicHotKeys();
  EXPECT_THAT(*list, has(116, shift | command));
  EXPECT_THAT(*list, Not(has(118, option)));
  EXPECT_THAT(*list, has(17, control | option));
}

TEST_F(DesktopLists, ComeFromKde) {
  Program service("kglobalaccel5", {});
  ASSERT_TRUE(until([] { return isOnBus("org.kde.kglobalaccel"); }));
  qDBusRegisterMetaType<QList<int>>();
  const QStringList action{"editor", "open", "Editor", "Open"};
  call("org.kde.KGlobalAccel", "/kglobalaccel", "doRegister", {action});
  const QList<int> keys{(Qt::META | Qt::Key_E).toCombined(),
                        (Qt::CTRL | Qt::SHIFT | Qt::Key_F9).toCombined()};
  call("org.kde.KGlobalAccel", "/kglobalaccel", "setShortcut",
       {action, QVariant::fromValue(keys), uint(4)});
  const auto list = desktop.copySymbolicHotKeys();
  ASSERT_TRUE(list);
  EXPECT_THAT(*list, has(14, command));
  EXPECT_THAT(*list, has(101, control | shift));
}

TEST_F(DesktopLists, ComeFromGnome) {
  qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
  const auto list = desktop.copySymbolicHotKeys();
  qunsetenv("XDG_CURRENT_DESKTOP");
  ASSERT_TRUE(list);
  // As installed: close a window, switch to another of the application.
  EXPECT_THAT(*list, has(118, option));
  EXPECT_THAT(*list, has(50, option));
}

TEST(Accelerators, AreReadAsTheirDesktopsWriteThem) {
  const auto read = [](const char* text) { return acceleratorFromGtkText(text); };
  EXPECT_EQ(read("<Control><Shift>a"), (Accelerator{'a', control | shift}));
  EXPECT_EQ(read("<ctrl>A"), (Accelerator{'A', control}));
  EXPECT_EQ(read("<Mod4><Alt>Above_Tab"), (Accelerator{0, command | option}));
  EXPECT_EQ(read("<Super>page_up")->symbol, read("<Super>Page_Up")->symbol);
  for (const char* none : {"", "disabled", "<Hyper>a", "<Control", "<Control>", "<>a", "/a/b/"}) {
    EXPECT_FALSE(read(none)) << none;
  }
  EXPECT_EQ(acceleratorFromQtKey((Qt::ALT | Qt::Key_Adiaeresis).toCombined())->modifiers, option);
  for (const int none : {0, -1, int(Qt::Key_Control), int(Qt::META)}) {
    EXPECT_FALSE(acceleratorFromQtKey(none)) << none;
  }
}

}  // namespace
}  // namespace qf
