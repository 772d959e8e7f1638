// SPDX-License-Identifier: Apache-2.0
// Real editors, reached the way the agent reaches them.
#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>
#include <csignal>

#include "hosts/linux/accessibility/elements/AtspiAccessibility.h"
#include "hosts/linux/clipboard/XcbPasteboard.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/accessibility/FakeSurroundings.h"
#include "tests/support/FakeWorkspace.h"
#include "textaccess/QFTextAccess.h"
#include "textaccess/QFUIElement.h"

namespace qf {
namespace {

using namespace desktop;

struct Target {
  const char* name;
  const char* command;
  enum { document, web, singleLine, megabyte } kind = document;
};

std::ostream& operator<<(std::ostream& out, const Target& target) { return out << target.name; }

class RealEditor : public testing::TestWithParam<Target> {
 protected:
  const QString line = "Überall fällt größerer Schnee, ночью 😀.";
  const QString sample = GetParam().kind == Target::megabyte     ? (line + "\n").repeated(18'000)
                         : GetParam().kind == Target::singleLine ? "Grüße aus dem  Büro 😀"
                         : GetParam().kind == Target::web  // says that the last line has an end
                             ? "Grüße aus dem Büro,\n\n  zwei 😀  Wörter"
                             : "Grüße aus dem Büro,\n\n  zwei 😀  Wörter\n";

  void SetUp() override {
    if (qEnvironmentVariableIsEmpty("QF_SESSION")) GTEST_SKIP() << "needs a private desktop";
    const QString program = QString(GetParam().command).section(' ', 0, 0);
    const auto isFound = [&](const QStringList& folders) {
      return !QStandardPaths::findExecutable(program, folders).isEmpty();
    };
    if (!isFound({}) && !isFound({QCoreApplication::applicationDirPath()}))
      GTEST_SKIP() << qPrintable(program) << " is not installed";
    accessibility = std::make_unique<AtspiAccessibility>(pasteboard, workspace, request);
    access = std::make_unique<QFTextAccess>(*accessibility, pasteboard, workspace);
    editor = std::make_unique<Editor>(GetParam().command, sample);
    const auto process = static_cast<std::int32_t>(editor->program().processIdentifier());
    workspace.applications = {{std::nullopt, GetParam().name, process}};
    workspace.frontmost = process;
  }

  std::optional<QFUIElement> road() {
    return QFUIElement::frontAppFocusedElement(workspace.frontmost, *access);
  }

  XcbPasteboard pasteboard;
  FakeWorkspace workspace;
  FakeSurroundings surroundings;
  CleanRequest request{pasteboard, surroundings};
  std::unique_ptr<AtspiAccessibility> accessibility;
  std::unique_ptr<QFTextAccess> access;
  std::unique_ptr<Editor> editor;
};

const Target mousepad{"Mousepad", "mousepad"}, featherpad{"Featherpad", "featherpad"},
    gedit{"Gedit", "gedit --standalone"}, pluma{"Pluma", "pluma"}, kate{"Kate", "kate --startanon"},
    focuswriter{"Focuswriter", "focuswriter"},
    gtk4Editor{"Gtk4Editor", "gnome-text-editor --standalone"},
    gtk3Dialog{"Gtk3Dialog", "zenity --entry --entry-text=%text", Target::singleLine},
    qt6Editor{"Qt6Editor", "text_window editor"},
    qt6Dialog{"Qt6Dialog", "text_window dialog", Target::singleLine},
    qt6Line{"Qt6Line", "text_window long", Target::singleLine},
    firefox{"Firefox", "firefox-esr --no-remote --profile %profile %page", Target::web},
    chromium{"Chromium",
             "chromium --force-renderer-accessibility --no-sandbox --no-first-run --disable-gpu "
             "--password-store=basic %page",
             Target::web};

std::string nameOf(const testing::TestParamInfo<Target>& target) { return target.param.name; }

INSTANTIATE_TEST_SUITE_P(Editors, RealEditor,
                         testing::Values(mousepad, featherpad, gedit, pluma, kate, focuswriter,
                                         gtk4Editor, gtk3Dialog, qt6Editor, qt6Dialog, chromium,
                                         firefox),
                         nameOf);

class StoppedEditor : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(Editors, StoppedEditor,
                         testing::Values(mousepad, featherpad, gtk4Editor, qt6Editor), nameOf);

TEST_P(RealEditor, ShowsFocusAndEnabledItems) {
  editor->reset(sample, false);
  const auto element = road();
  ASSERT_TRUE(element);
  EXPECT_TRUE(element->isEditableTextArea());
  EXPECT_EQ(element->role(), GetParam().kind == Target::singleLine ? "AXTextField" : "AXTextArea");
  const auto value = element->value();
  ASSERT_TRUE(value);
  const auto shown = QString::fromStdString(std::get<std::string>(*value));
  EXPECT_EQ(QString(shown).remove(QChar::ByteOrderMark), sample);
  EXPECT_EQ(element->window()->role(), "AXWindow");
  EXPECT_EQ(element->processID(), workspace.frontmost);
  EXPECT_TRUE(QFUIElement::focusedElement(*access)->isEditableTextArea());

  const auto copy = element->menuItemWithShortcut("C", "0");
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->role(), "AXMenuItem");
  EXPECT_TRUE(element->menuItemWithShortcut("V", "0"));
  EXPECT_TRUE(element->menuItemWithShortcut("A", "0")->enabled());
  EXPECT_FALSE(copy->enabled());
  editor->reset(sample);
  EXPECT_TRUE(until([&] { return copy->enabled(); }));
  EXPECT_FALSE(element->menuItemWithShortcut("c", "0"));
}

TEST_P(RealEditor, CopiesAndPastesWithAndWithoutSelection) {
  for (const bool isSelected : {true, false}) {
    editor->reset(sample);
    const auto element = road();
    ASSERT_TRUE(element);
    if (!isSelected) {
      // Only what is seen to have happened cannot happen later, in the middle of the road.
      keyboard::press("Home");
      const auto copy = element->menuItemWithShortcut("C", "0");
      ASSERT_TRUE(copy && until([&] { return !copy->enabled(); }));
    }
    clipboard::setText("old");
    ASSERT_TRUE(element->copyToClipboard());
    EXPECT_EQ(pasteboard.string(), sample.toStdString());
    pasteboard.setString("Neuer Übermut");
    EXPECT_TRUE(element->pasteFromClipboard());
    EXPECT_TRUE(until([&] { return editor->text() == "Neuer Übermut"; }))
        << qPrintable(editor->text());
  }
}

TEST_P(RealEditor, ReplacesOrDeletesTheSelectionAlone) {
  editor->reset("😀 zwei drei", false);
  keyboard::press("End");
  keyboard::press("ctrl+shift+Left");
  const auto element = road();
  ASSERT_TRUE(element);
  ASSERT_TRUE(until([&] { return element->menuItemWithShortcut("C", "0")->enabled(); }));
  ASSERT_TRUE(element->copyToClipboard());
  EXPECT_EQ(pasteboard.string(), "drei");
  pasteboard.setString("Ünf");
  EXPECT_TRUE(element->pasteFromClipboard());
  EXPECT_TRUE(until([&] { return editor->text() == "😀 zwei Ünf"; })) << qPrintable(editor->text());

  keyboard::press("ctrl+shift+Left");
  ASSERT_TRUE(until([&] { return element->menuItemWithShortcut("C", "0")->enabled(); }));
  pasteboard.setString("");
  const bool isDeleted = element->pasteFromClipboard();
  EXPECT_NE(isDeleted, GetParam().name == kate.name || GetParam().name == firefox.name);
  const QString rest = isDeleted ? "😀 zwei " : "😀 zwei Ünf";
  EXPECT_TRUE(until([&] { return editor->text() == rest; })) << qPrintable(editor->text());
}

class Entry : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(Editors, Entry, testing::Values(gtk3Dialog, qt6Dialog), nameOf);

TEST_P(Entry, ThatIsTooShortSaysSo) {
  editor->reset(sample);
  const auto element = road();
  ASSERT_TRUE(element && element->copyToClipboard());
  pasteboard.setString(QString("ü").repeated(100'000).toStdString());
  EXPECT_FALSE(element->pasteFromClipboard());
  EXPECT_THAT(accessibility->availability().reason, testing::HasSubstr("only a part"));
}

class LongText : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(Editors, LongText,
                         testing::Values(mousepad, featherpad, gedit, pluma, kate, gtk4Editor,
                                         gtk3Dialog, qt6Editor, qt6Line, firefox),
                         nameOf);

TEST_P(LongText, OfAMegabyteIsCopiedAndPastedWithAndWithoutSelection) {
  // An entry of GTK 3 holds 64 KiB, and one of Qt is slow with more.
  const bool isShort = GetParam().kind == Target::singleLine;
  const QString text = isShort ? line.repeated(1'150) : (line + "\n").repeated(18'000);
  for (const bool isSelected : {true, false}) {
    editor->reset(text, isSelected);
    // A busy editor may copy too late at first.
    auto element = road();
    ASSERT_TRUE(until([&] {
      element = road();
      return element && element->copyToClipboard() && pasteboard.string() == text.toStdString();
    }));
    pasteboard.setString(text.toUpper().toStdString());
    EXPECT_TRUE(element->pasteFromClipboard());
    EXPECT_TRUE(until([&] { return editor->text() == text.toUpper(); }));
  }
}

class Terminal : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(Editors, Terminal,
                         testing::Values(Target{
                             "Xfce4Terminal",
                             "xfce4-terminal --disable-server --execute cat %file -"}),
                         nameOf);

TEST_P(Terminal, IsReachedByKeysOfItsOwnInAMenuThatFillsWhenOpened) {
  const auto element = road();
  ASSERT_TRUE(element);
  EXPECT_EQ(element->role(), "AXTextArea");
  const auto copy = element->menuItemWithShortcut("C", "0");
  ASSERT_TRUE(copy);
  EXPECT_FALSE(copy->enabled());
  EXPECT_FALSE(element->copyToClipboard()) << "all of it would be pasted at the prompt";
  ASSERT_TRUE(until([&] { return editor->selectAll(); }));
  EXPECT_TRUE(element->copyToClipboard());
  EXPECT_THAT(pasteboard.string().value_or(""), testing::StartsWith(sample.toStdString()));
  pasteboard.setString("Übermut");  // it asks before it pastes several lines
  EXPECT_TRUE(element->pasteFromClipboard());
  EXPECT_TRUE(until([&] { return editor->text().contains("Wörter\nÜbermut"); }))
      << qPrintable(editor->text());
  // Its menu is closed again.
  keyboard::press("x");
  EXPECT_TRUE(until([&] { return editor->text().contains("Übermutx"); }));
}

class TerminalWithoutEnd : public RealEditor {
  void SetUp() override {
    const QString folder = qEnvironmentVariable("HOME") + "/.config/xfce4/terminal";
    QDir().mkpath(folder);
    QFile settings(folder + "/terminalrc");
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Configuration]\nScrollingUnlimited=TRUE\nMiscShowUnsafePasteDialog=FALSE\n");
    settings.close();
    RealEditor::SetUp();
  }

 protected:
  /// Its Select All takes what is in sight.
  void selectEverything() {
    const auto screen = Accessible::application(workspace.frontmost)->find([](const Accessible& n) {
      return n.role() == "terminal";
    });
    const QRect area = screen->screenExtents().adjusted(3, 8, -3, -3);
    const auto moveTo = [](QPoint place) {
      return QStringList{"mousemove", QString::number(place.x()), QString::number(place.y()),
                         "sleep", "0.3"};
    };
    output("xdotool", QStringList{"key", "shift+Home", "sleep", "0.3"} + moveTo(area.topLeft()) +
                          QStringList{"mousedown", "1"} + moveTo(area.center()) +
                          QStringList{"key", "shift+End", "sleep", "0.3"} +
                          moveTo(area.bottomRight()) + QStringList{"mouseup", "1"});
  }
};
INSTANTIATE_TEST_SUITE_P(
    Editors, TerminalWithoutEnd,
    testing::Values(Target{
        "Xfce4Terminal",
        "xfce4-terminal --disable-server --execute sh -c cat<$0;cat>$HOME/pasted %file",
        Target::megabyte}),
    nameOf);

TEST_P(TerminalWithoutEnd, GivesAMegabyteOfItsOutputAndTakesItCleaned) {
  editor->focus();
  auto element = road();
  ASSERT_TRUE(until([&] {  // all of it has been shown
    selectEverything();
    element = road();
    if (!element || !element->copyToClipboard()) return false;
    return pasteboard.string().value_or("").starts_with(sample.toStdString());
  }));
  pasteboard.setString(sample.toUpper().toStdString());
  EXPECT_TRUE(element->pasteFromClipboard());
  QFile pasted(qEnvironmentVariable("HOME") + "/pasted");
  ASSERT_TRUE(pasted.open(QIODevice::ReadOnly));
  QByteArray bytes;
  EXPECT_TRUE(until([&] { return (bytes += pasted.readAll()) == sample.toUpper().toUtf8(); }))
      << bytes.size();
}

class TerminalWithoutMenuBar : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(
    Editors, TerminalWithoutMenuBar,
    testing::Values(Target{"Xfce4Terminal",
                           "xfce4-terminal --disable-server --hide-menubar --execute cat %file -"}),
    nameOf);

TEST_P(TerminalWithoutMenuBar, GivesItsTextAndSaysWhyItTakesNone) {
  ASSERT_TRUE(until([&] { return editor->selectAll(); }));
  const auto element = road();
  ASSERT_TRUE(element && element->copyToClipboard());
  EXPECT_THAT(pasteboard.string().value_or(""),
              testing::StartsWith(sample.trimmed().toStdString()));
  EXPECT_FALSE(element->pasteFromClipboard());
  EXPECT_THAT(accessibility->availability().reason, testing::HasSubstr("offers no Paste"));
}

TEST_P(StoppedEditor, IsLeftAloneOnTheRoadToo) {
  for (const bool isFoundBefore : {false, true}) {
    editor->reset(sample);
    clipboard::setText("old");
    auto element = road();
    ASSERT_TRUE(element && element->menuItemWithShortcut("C", "0"));

    editor->program().signal(SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    if (!isFoundBefore) element = road();
    if (element) element->copyToClipboard();
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(element.has_value(), isFoundBefore);
    EXPECT_FALSE(element && element->pasteFromClipboard());

    editor->program().signal(SIGCONT);
    QThread::msleep(700);
    EXPECT_EQ(editor->text(), sample);
    EXPECT_EQ(clipboard::text(), "old");
  }
}

}  // namespace
}  // namespace qf
