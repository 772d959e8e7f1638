// SPDX-License-Identifier: Apache-2.0
// The key codes as docs/files.md has them, held against what programs see when keys are pressed.
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon.h>

#include <QFile>
#include <QRegularExpression>

#include "tests/desktop/Keyboard.h"
#include "tests/hosts/keys/PressCounter.h"

namespace qf {
namespace {

using desktop::Keyboard;
using desktop::output;
using desktop::Program;
using desktop::until;

/// Codes by "keys: key", as documented.
std::map<QString, std::uint32_t> documentedCodes() {
  std::map<QString, std::uint32_t> codes;
  QFile file(QF_FILES_DOC);
  if (!file.open(QIODevice::ReadOnly)) return codes;
  const QString text = QString::fromUtf8(file.readAll()).section("| Keys | Code and key |", 1);
  static const QRegularExpression rowForm(R"(^\| ([\w ]+) \| (.+) \|$)");
  static const QRegularExpression keyForm(R"(^(\d+) (.+)$)");
  for (const QString& line : text.split('\n').mid(2)) {
    const auto row = rowForm.match(line);
    if (!row.hasMatch()) break;
    for (const QString& entry : row.captured(2).split(" · ")) {
      const auto key = keyForm.match(entry);
      codes[row.captured(1) + ": " + key.captured(2)] = key.captured(1).toUInt();
    }
  }
  return codes;
}

/// Keys of the X server by the name of what they give, as xev sees them on the present layout.
std::map<QString, std::uint16_t> keysSeen(Keyboard& keyboard, std::uint16_t first,
                                          std::uint16_t last) {
  Program xev("xev", {"-event", "keyboard"});
  const bool isFocused = until([&] {
    keyboard.press({KEY_A});
    return xev.printed().contains("keysym");
  });
  EXPECT_TRUE(isFocused);
  for (std::uint16_t key = first; key <= last; ++key) {
    keyboard.press({key});
    if (key == KEY_CAPSLOCK || key == KEY_NUMLOCK) keyboard.press({key});
  }
  // X counts the kernel's keys from 8.
  until([&] { return xev.printed().contains(QString("keycode %1").arg(last + 8)); });
  std::map<QString, std::uint16_t> keys;
  static const QRegularExpression seen(R"(keycode (\d+) \(keysym 0x[0-9a-f]+, (\w+)\))");
  for (auto match = seen.globalMatch(xev.printed()); match.hasNext();) {
    const auto key = match.next();
    keys.emplace(key.captured(2), key.captured(1).toUShort() - 8);
  }
  return keys;
}

/// What a program sees of the key where that is not the documented word itself.
QString nameSeen(const QString& documented) {
  static const std::map<QString, QString> names = {{"around them: Space", "space"},
                                                   {"around them: Backspace", "BackSpace"},
                                                   {"keypad: 0", "KP_Insert"},
                                                   {"keypad: 1", "KP_End"},
                                                   {"keypad: 2", "KP_Down"},
                                                   {"keypad: 3", "KP_Next"},
                                                   {"keypad: 4", "KP_Left"},
                                                   {"keypad: 5", "KP_Begin"},
                                                   {"keypad: 6", "KP_Right"},
                                                   {"keypad: 7", "KP_Home"},
                                                   {"keypad: 8", "KP_Up"},
                                                   {"keypad: 9", "KP_Prior"},
                                                   {"keypad: .", "KP_Delete"},
                                                   {"keypad: +", "KP_Add"},
                                                   {"keypad: -", "KP_Subtract"},
                                                   {"keypad: *", "KP_Multiply"},
                                                   {"keypad: /", "KP_Divide"},
                                                   {"keypad: =", "KP_Equal"},
                                                   {"keypad: Enter", "KP_Enter"},
                                                   {"keypad: Clear", "Num_Lock"},
                                                   {"navigation: Help", "Insert"},
                                                   {"navigation: Page Up", "Prior"},
                                                   {"navigation: Page Down", "Next"},
                                                   {"navigation: left", "Left"},
                                                   {"navigation: right", "Right"},
                                                   {"navigation: down", "Down"},
                                                   {"navigation: up", "Up"},
                                                   {"ISO: the key beside left Shift", "less"}};
  if (const auto found = names.find(documented); found != names.end()) return found->second;
  const QString key = documented.section(": ", 1);
  if (key.size() != 1) return key;
  char name[64] = {};
  xkb_keysym_get_name(xkb_utf32_to_keysym(key.toLower().at(0).unicode()), name, sizeof name);
  return name;
}

/// Keys that keyboards of the US lack, on layouts of those that have them.
std::map<QString, std::vector<std::uint16_t>> keysOfOtherKeyboards(Keyboard& keyboard) {
  output("setxkbmap", {"-symbols",
                       "pc+macintosh_vndr/jp+inet(evdev)+digital_vndr/vt+"
                       "macintosh_vndr/apple(alukbd)"});
  settle();
  auto japanese = keysSeen(keyboard, KEY_RO, KEY_F20);
  output("setxkbmap", {"us"});
  settle();
  auto korean = keysSeen(keyboard, KEY_KPENTER, KEY_COMPOSE);
  std::map<QString, std::vector<std::uint16_t>> keys = {
      {"JIS: Yen", {japanese["yen"]}},
      {"JIS: Ro", {japanese["underscore"]}},
      {"JIS: keypad comma", {japanese["KP_Separator"]}},
      {"JIS: Eisu", {japanese["Muhenkan"], korean["Hangul_Hanja"]}},
      {"JIS: Kana", {japanese["Hiragana_Katakana"], korean["Hangul"]}},
  };
  for (int n = 13; n <= 20; ++n) {
    const QString name = "F" + QString::number(n);
    keys["function keys: " + name] = {japanese[name]};
  }
  return keys;
}

TEST(KeyTable, IsWhatProgramsSee) {
  Keyboard keyboard;
  const auto codes = documentedCodes();
  ASSERT_EQ(codes.size(), 106u);
  auto seen = keysSeen(keyboard, KEY_ESC, KEY_COMPOSE);
  auto keysOf = keysOfOtherKeyboards(keyboard);
  PressCounter counter;
  for (const auto& [documented, code] : codes) {
    // Numbers are counted from 1, and key codes from 0.
    ASSERT_EQ(counter.add(code, hotKeyModifier::control, code + 1), HotKeyStatus::noError)
        << documented.toStdString();
  }
  for (const auto& [documented, code] : codes) {
    if (!keysOf.contains(documented)) {
      ASSERT_TRUE(seen.contains(nameSeen(documented))) << documented.toStdString();
      keysOf[documented] = {seen[nameSeen(documented)]};
    }
    for (const std::uint16_t key : keysOf[documented]) {
      counter.presses.clear();
      keyboard.press({KEY_LEFTCTRL, key});
      EXPECT_TRUE(counter.heard(code + 1)) << documented.toStdString();
      EXPECT_EQ(counter.presses.size(), 1u) << documented.toStdString();
    }
  }
  keyboard.press({KEY_NUMLOCK});
}

}  // namespace
}  // namespace qf
