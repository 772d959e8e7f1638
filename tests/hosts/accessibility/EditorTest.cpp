// SPDX-License-Identifier: Apache-2.0
// Real editors, reached the way the agent reaches them.
#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>
#include <csignal>

#include "hosts/linux/accessibility/AtspiAccessibility.h"
#include "hosts/linux/pasteboard/XcbPasteboard.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FakeWorkspace.h"
#include "textaccess/QFTextAccess.h"
#include "textaccess/QFUIElement.h"

namespace qf {
namespace {

using namespace desktop;

struct Target {
  const char* name;
  const char* command;
  enum { document, web, singleLine } kind = document;
};

std::ostream& operator<<(std::ostream& out, const Target& target) { return out << target.name; }

class RealEditor : public testing::TestWithParam<Target> {
 protected:
  const QString sample = GetParam().kind == Target::singleLine ? "Grüße aus dem  Büro 😀"
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
    accessibility = std::make_unique<AtspiAccessibility>(pasteboard, workspace);
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
    chromium{
        "Chromium",
        "chromium --force-renderer-accessibility --no-sandbox --no-first-run --disable-gpu %page",
        Target::web};

std::string nameOf(const testing::TestParamInfo<Target>& target) { return target.param.name; }

INSTANTIATE_TEST_SUITE_P(Editors, RealEditor,
                         testing::Values(mousepad, featherpad, gedit, pluma, kate, focuswriter,
                                         gtk4Editor, gtk3Dialog, qt6Editor, qt6Dialog, chromium),
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
  EXPECT_EQ(std::get<std::string>(*value), sample.toStdString());
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
  EXPECT_NE(isDeleted, GetParam().name == std::string("Kate"));
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
                         testing::Values(mousepad, featherpad, gedit, gtk4Editor, qt6Editor),
                         nameOf);

TEST_P(LongText, OfAMegabyteIsCopiedAndPasted) {
  const QString text = QString("Überall fällt größerer Schnee, ночью 😀.\n").repeated(18'000);
  editor->reset(text);
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

class TerminalWithoutMenuBar : public RealEditor {};
INSTANTIATE_TEST_SUITE_P(
    Editors, TerminalWithoutMenuBar,
    testing::Values(Target{"Xfce4Terminal",
                           "xfce4-terminal --disable-server --hide-menubar --execute cat %file -"}),
    nameOf);

TEST_P(TerminalWithoutMenuBar, GivesItsTextAndSaysWhyItTakesNone) {
  const auto element = road();
  ASSERT_TRUE(element && element->copyToClipboard());
  EXPECT_EQ(pasteboard.string(), sample.trimmed().toStdString());
  EXPECT_FALSE(element->pasteFromClipboard());
  EXPECT_THAT(accessibility->availability().reason, testing::HasSubstr("menu bar is hidden"));
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
