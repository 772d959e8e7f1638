// SPDX-License-Identifier: Apache-2.0
// Applications that no toolkit would make, and what real ones do seldom.
#include <gmock/gmock.h>
#include <unistd.h>

#include <QRegularExpression>
#include <atomic>
#include <thread>

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/elements/AtspiAccessibility.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/accessibility/FakeAtspiApplication.h"
#include "tests/hosts/accessibility/FakeSurroundings.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeWorkspace.h"
#include "textaccess/QFTextAccess.h"
#include "textaccess/QFUIElement.h"

namespace qf {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int active = 1, editable = 7, focused = 12, multiLine = 17, sensitive = 24, showing = 25;

/// Whose changes one thread counts while another makes them.
class CountedPasteboard : public FakePasteboard {
 public:
  std::int64_t changeCount() const override { return changes; }
  std::atomic<std::int64_t> changes = 0;
};

class HostileApplication : public testing::Test {
 protected:
  struct Editor {
    int window, bar, edit, copy, paste, text;
  };

  void SetUp() override {
    if (qEnvironmentVariableIsEmpty("QF_SESSION")) GTEST_SKIP() << "needs a private desktop";
    accessibility = std::make_unique<AtspiAccessibility>(pasteboard, workspace, request);
    accessibility->setOutcomeHandler([this](const Availability& outcome) {
      if (!outcome.isAvailable) told.push_back(outcome.reason);
    });
    access = std::make_unique<QFTextAccess>(*accessibility, pasteboard, workspace);
    application = std::make_unique<FakeAtspiApplication>();
    editor = addEditor();
    application->setState(editor.window, active, true);
  }

  Editor addEditor() {
    Editor made{};
    made.window = application->add(FakeAtspiApplication::root, atspirole::frame);
    made.bar = application->add(made.window, atspirole::menuBar);
    const int file = application->add(made.bar, atspirole::menu);
    application->add(file, atspirole::menuItem, "o;;<Primary>o");
    made.edit = application->add(made.bar, atspirole::menu);
    made.copy = application->add(made.edit, atspirole::menuItem, "c;;<Primary>c");
    made.paste = application->add(made.edit, atspirole::menuItem, "p;;<Primary>v");
    made.text = application->add(made.window, atspirole::text);
    return made;
  }

  int addDialog() {
    const int dialog = application->add(FakeAtspiApplication::root, atspirole::dialog);
    application->setState(editor.window, active, false);
    application->setState(dialog, active, true);
    workspace.applications = {{std::nullopt, "Hostile", getpid()}};
    return dialog;
  }
  int addText(int parent, uint role, const QString& content) {
    const int text = application->addText(parent, role, content);
    application->change(text, [this](auto& changed) {
      changed.onCopy = [this](const QString& copied) {
        pasteboard.setString(copied.toStdString());
        ++pasteboard.changes;
      };
    });
    return text;
  }

  /// In the window with the menu bar: the text that its menu acts on.
  int addDocument(const QString& content) {
    const int document = addText(editor.window, atspirole::text, content);
    application->setState(document, multiLine, true);
    return document;
  }

  std::optional<QFUIElement> road() {
    return QFUIElement::frontAppFocusedElement(getpid(), *access);
  }
  std::optional<QFUIElement> find(std::string_view key) {
    const auto element = road();
    return element ? element->menuItemWithShortcut(key, "0") : std::nullopt;
  }
  static bool press(const QFUIElement& item) { return item.elementRef()->performAction("AXPress"); }
  /// Whether a press reaches that object.
  bool reaches(const QFUIElement& item, int object) {
    std::atomic<bool> wasPressed = false;
    application->change(object,
                        [&](auto& pressed) { pressed.onAction = [&] { wasPressed = true; }; });
    return press(item) && wasPressed;
  }

  CountedPasteboard pasteboard;
  FakeWorkspace workspace;
  FakeSurroundings surroundings;
  CleanRequest request{pasteboard, surroundings};
  std::vector<std::string> told;
  std::unique_ptr<AtspiAccessibility> accessibility;
  std::unique_ptr<QFTextAccess> access;
  std::unique_ptr<FakeAtspiApplication> application;
  Editor editor;
};

TEST_F(HostileApplication, SlowOneIsStillServed) {
  application->setDelay(200ms);
  EXPECT_TRUE(find("C"));
}

TEST_F(HostileApplication, WithoutMenuBarTheTextItselfIsReached) {
  const int dialog = addDialog();
  const int text = addText(dialog, atspirole::text, "alter Übermut");
  for (const auto delay : {0ms, 200ms}) {
    application->setDelay(delay);
    const auto element = road();
    ASSERT_TRUE(element);
    EXPECT_FALSE(element->menuItemWithShortcut("C", "0")->enabled());
    EXPECT_TRUE(element->copyToClipboard());
    EXPECT_EQ(pasteboard.string(), "alter Übermut");
    pasteboard.setString("neuer");
    EXPECT_TRUE(element->pasteFromClipboard());
    EXPECT_EQ(application->textOf(text), "neuer");
    application->change(text, [](auto& changed) { changed.text = "alter Übermut"; });
  }
  application->setDelay(0ms);
  application->change(text, [](auto& changed) {
    changed.selectionStart = 6;
    changed.selectionEnd = 11;
  });
  application->takeCalls();
  EXPECT_TRUE(press(*find("V")));
  EXPECT_EQ(application->textOf(text), "alter neuerut");
  auto calls = application->takeCalls();
  EXPECT_EQ(calls["GetChildren"], 2) << "the application and the dialog: nothing is searched again";
  EXPECT_EQ(calls["DoAction"], 0);
}

TEST_F(HostileApplication, ThatAWholeTextIsTakenIsToldAndCanBeRefused) {
  const int text = addText(addDialog(), atspirole::text, "alter Übermut");
  std::vector<std::string> wholeTexts;
  accessibility->setWholeTextHandler(
      [&](const std::string& sentence) { wholeTexts.push_back(sentence); });
  const auto clean = [&] {
    const auto element = road();
    if (!element || !element->copyToClipboard()) return;
    request.willSend();
    if (!request.hintsOfEvent({1, true}, 1s)) return;
    pasteboard.setString("neuer");
    request.answered({AnswerHints::Outcome::cleaned, pasteboard.contentsIdentifier()});
    element->pasteFromClipboard();
  };
  clean();
  EXPECT_EQ(application->textOf(text), "neuer");
  EXPECT_THAT(wholeTexts, ElementsAre(HasSubstr("(13 characters)")));

  accessibility->setTakesWholeTexts([] { return false; });
  application->change(text, [](auto& changed) { changed.text = "alter Übermut"; });
  told.clear();
  clean();
  EXPECT_EQ(application->textOf(text), "alter Übermut");
  EXPECT_THAT(told, ElementsAre(HasSubstr("nothing is selected")));
  application->change(text, [](auto& changed) {
    changed.selectionStart = 0;
    changed.selectionEnd = 5;
  });
  clean();
  EXPECT_EQ(application->textOf(text), "neuer Übermut");
  EXPECT_THAT(wholeTexts, SizeIs(1));
}

TEST_F(HostileApplication, TextThatTakesDigitsOnlyKeepsWhatItHad) {
  const int text = addText(addDialog(), atspirole::text, "a 123 z");
  const auto put = [&](const std::string& cleaned, const QString& now) {
    application->change(text, [](auto& changed) {
      changed.text = "a 123 z";
      changed.selectionStart = 2;
      changed.selectionEnd = 5;
    });
    pasteboard.setString(cleaned);
    told.clear();
    const bool isTaken = press(*find("V"));
    EXPECT_EQ(application->textOf(text), now);
    return isTaken;
  };
  EXPECT_TRUE(put("", "a  z"));
  application->change(text, [](auto& changed) {
    changed.filter = [](QString given) { return given.remove(QRegularExpression("\\D")); };
  });
  for (const bool admits : {false, true}) {
    application->change(text, [&](auto& changed) { changed.admitsFiltering = admits; });
    EXPECT_TRUE(put("45678", "a 45678 z"));
    EXPECT_THAT(told, IsEmpty());
    EXPECT_FALSE(put("no", "a 123 z"));
    EXPECT_THAT(told, ElementsAre(HasSubstr("Hostile cannot be cleaned, because it refuses")));
    EXPECT_FALSE(put("no 1", "a 1 z"));
    EXPECT_THAT(told, ElementsAre(HasSubstr("only a part")));
  }
  pasteboard.setItems({});
  EXPECT_FALSE(press(*find("V")));
  EXPECT_EQ(application->textOf(text), "a 1 z");
}

TEST_F(HostileApplication, ContextMenuServesWhereTheTextIsNotEditable) {
  const int text = addText(addDialog(), atspirole::entry, "old text");
  bool isOpening = true;
  QStringList names{"Undo Ctrl+Z", "Copy Ctrl+C", "Paste Ctrl+V"};
  std::vector<int> windows;
  application->change(FakeAtspiApplication::root, [&](auto& root) { windows = root.children; });
  const auto close = [&] {
    application->change(FakeAtspiApplication::root, [&](auto& root) { root.children = windows; });
  };
  const auto open = [&] {
    if (!isOpening) return;
    const int popup = application->add(FakeAtspiApplication::root, atspirole::frame);
    for (const QString& name : names) {
      const int item = application->add(popup, atspirole::menuItem);
      application->change(item, [&](auto& changed) {
        changed.name = name;
        changed.onAction = [&, name] {
          pasteboard.setString(name.toStdString());
          ++pasteboard.changes;
          close();
        };
      });
    }
  };
  application->change(text, [&](auto& changed) {
    changed.isEditable = false;
    changed.selectionEnd = 3;
    changed.actionName = "showContextMenu";
    changed.onAction = open;
  });
  EXPECT_TRUE(press(*find("C")));
  EXPECT_EQ(pasteboard.string(), "Copy Ctrl+C");
  EXPECT_TRUE(press(*find("V")));
  EXPECT_EQ(pasteboard.string(), "Paste Ctrl+V");
  EXPECT_THAT(told, IsEmpty());

  isOpening = false;
  EXPECT_FALSE(press(*find("C")));
  EXPECT_THAT(told, ElementsAre(HasSubstr("offers no Paste")));

  isOpening = true;
  names = QStringList{"Undo Ctrl+Z"};
  desktop::Editor closedByEscape("text_window editor", "a dialog");
  EXPECT_FALSE(press(*find("C")));
  EXPECT_THAT(told.back(), HasSubstr("does not offer that"));
  EXPECT_TRUE(desktop::until([&] { return !closedByEscape.program().isRunning(); }));
}

TEST_F(HostileApplication, TextThatClosesOrKeepsToItselfIsLeftAlone) {
  const int dialog = addDialog();
  const int text = addText(dialog, atspirole::text, "old");
  const auto paste = find("V");
  ASSERT_TRUE(paste);
  application->change(text, [](auto& closed) { closed.states.clear(); });
  EXPECT_FALSE(press(*paste));
  EXPECT_EQ(application->textOf(text), "old");
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("read-only"));

  EXPECT_FALSE(find("C"));
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("nothing in it has the focus"));
  addText(dialog, atspirole::passwordText, "secret");
  EXPECT_FALSE(find("C"));
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("a password field"));
  EXPECT_TRUE(accessibility->isProcessTrusted(false));

  application->setState(dialog, active, false);
  application->setState(dialog, showing, false);
  EXPECT_TRUE(press(*find("V")));
  EXPECT_TRUE(accessibility->availability().isAvailable);
}

TEST_F(HostileApplication, MenuThatIsUpToDateOnlyWhenOpenedIsOpenedOnce) {
  addDocument("text");
  application->setState(editor.copy, sensitive, false);
  EXPECT_FALSE(find("C")->enabled());
  EXPECT_EQ(application->takeCalls()["DoAction"], 0) << "nothing is selected";

  const int selected = addDocument("text");
  application->setState(editor.text + 1, focused, false);
  application->change(selected, [](auto& text) { text.selectionEnd = 4; });
  application->change(editor.edit, [&](auto& menu) {
    menu.onAction = [&] { application->setState(editor.copy, sensitive, true); };
  });
  EXPECT_TRUE(find("C")->enabled());
  EXPECT_TRUE(find("C")->enabled());
  auto calls = application->takeCalls();
  EXPECT_EQ(calls["DoAction"], 1);
  EXPECT_EQ(calls["ClearSelection"], 1);
  application->change(selected, [](auto& text) { text.role = atspirole::paragraph; });
  application->change(selected, [](auto& text) { text.selectionEnd = 0; });
  application->setState(editor.copy, sensitive, false);
  EXPECT_TRUE(find("C")->enabled()) << "the selection may lie in other paragraphs";
  application->takeCalls();

  const auto items = std::vector{editor.copy, editor.paste};
  application->change(editor.edit, [&](auto& menu) {
    menu.children.clear();
    menu.onAction = [&] {
      application->change(editor.edit, [&](auto& opened) { opened.children = items; });
    };
  });
  EXPECT_TRUE(reaches(*find("C"), editor.copy));
  calls = application->takeCalls();
  EXPECT_EQ(calls["DoAction"], 2) << "the menu and the item";
  EXPECT_EQ(calls["ClearSelection"], 1);
}

TEST_F(HostileApplication, CopyThatTakesTheLineWithoutASelectionCountsAsDisabled) {
  application->setToolkit("Qt");
  const int text = addDocument("text");
  EXPECT_FALSE(find("C")->enabled());
  application->change(text, [](auto& changed) { changed.selectionEnd = 4; });
  EXPECT_TRUE(find("C")->enabled());
}

TEST_F(HostileApplication, SilentOneCountsAsGoneForTheRestOfTheRoad) {
  const auto copy = find("C");
  ASSERT_TRUE(copy);
  application->setSilent(true);
  EXPECT_FALSE(press(*copy));
  application->setSilent(false);
  application->takeCalls();
  EXPECT_FALSE(press(*copy));
  EXPECT_FALSE(copy->enabled());
  EXPECT_FALSE(copy->parent());
  EXPECT_THAT(application->takeCalls(), SizeIs(0));
  EXPECT_TRUE(find("C"));
}

TEST_F(HostileApplication, OneThatDiesHalfwayIsLeftAlone) {
  const auto element = road();
  application->change(editor.copy,
                      [&](auto& item) { item.onAction = [&] { ++pasteboard.changes; }; });
  EXPECT_TRUE(press(*element->menuItemWithShortcut("C", "0")));
  const auto paste = element->menuItemWithShortcut("V", "0");
  application.reset();
  EXPECT_FALSE(press(*paste));
  EXPECT_FALSE(element->menuItemWithShortcut("V", "0"));
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("it does not answer"));
}

TEST_F(HostileApplication, VerySlowOneCostsNoMoreThanTheLimitOfTheRoad) {
  for (int i = 0; i < 200; ++i) application->add(editor.edit, atspirole::menuItem);
  application->setDelay(200ms);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(find("X"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, AtspiRequest::roadLimit + 2s);
  EXPECT_THAT(told, ElementsAre(HasSubstr("it answers too slowly")));
}

TEST_F(HostileApplication, CirclesAndCrowdsAreCut) {
  application->change(editor.edit, [&](auto& menu) {
    menu.children.insert(menu.children.begin(), {editor.bar, editor.edit});
  });
  application->change(editor.copy, [&](auto& item) { item.children = {editor.edit}; });
  const int crowd = application->add(editor.bar, atspirole::menu);
  for (int i = 0; i < 100'000; ++i) application->add(crowd, atspirole::menuItem);
  application->change(editor.window, [&](auto& window) { window.parent = editor.window; });
  EXPECT_TRUE(find("V"));
  EXPECT_FALSE(find("X"));
}

TEST_F(HostileApplication, SecondRoadMakesNoSearchButSeesChanges) {
  application->setState(editor.text, focused, true);
  application->setState(editor.text, editable, true);
  ASSERT_TRUE(find("C"));
  application->takeCalls();
  ASSERT_TRUE(find("C"));
  auto calls = application->takeCalls();
  EXPECT_EQ(calls["GetChildren"], 3)
      << "the application, the bar and the menu that was looked into";
  EXPECT_EQ(calls["GetKeyBinding"], 2) << "its items";
  EXPECT_EQ(calls["GetRole"], 3) << "the window, the text, and the window above it";

  const int moved = application->add(editor.edit, atspirole::menuItem, "Ctrl+C");
  application->change(editor.copy, [](auto& item) { item.keyBinding = "Ctrl+Y"; });
  const auto copy = find("C");
  ASSERT_TRUE(copy);
  EXPECT_TRUE(reaches(*copy, moved));
}

TEST_F(HostileApplication, PressWaitsUntilTheItemIsSensitive) {
  addDocument("text");
  const auto paste = find("V");
  ASSERT_TRUE(paste);
  application->setState(editor.paste, sensitive, false);
  EXPECT_FALSE(paste->enabled());
  EXPECT_FALSE(press(*paste));
  EXPECT_EQ(application->takeCalls()["DoAction"], 0);

  std::thread later([&] {
    std::this_thread::sleep_for(300ms);
    application->setState(editor.paste, sensitive, true);
  });
  EXPECT_TRUE(reaches(*paste, editor.paste));
  later.join();
}

TEST_F(HostileApplication, NothingIsPastedAfterACopyThatBroughtNothing) {
  const auto element = road();
  const auto copy = element->menuItemWithShortcut("C", "0");
  const auto paste = element->menuItemWithShortcut("V", "0");
  EXPECT_TRUE(reaches(*paste, editor.paste));
  EXPECT_TRUE(reaches(*copy, editor.copy));
  ++pasteboard.changes;  // somebody else's
  EXPECT_FALSE(reaches(*paste, editor.paste));
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("has not copied its text"));
  application->change(editor.copy,
                      [&](auto& item) { item.onAction = [&] { ++pasteboard.changes; }; });
  EXPECT_TRUE(press(*copy));
  EXPECT_TRUE(reaches(*paste, editor.paste));
  EXPECT_TRUE(accessibility->availability().isAvailable);

  application->setState(editor.paste, sensitive, false);
  EXPECT_FALSE(find("V")->enabled());
  EXPECT_THAT(told, ElementsAre(HasSubstr("read-only"))) << "at the end of its road, once";
}

TEST_F(HostileApplication, LateCopyOfASelectionIsNotFollowedBySelectAll) {
  const int text = addDocument("some text");
  application->change(text, [](auto& changed) { changed.selectionEnd = 4; });
  const int selectAll = application->add(editor.edit, atspirole::menuItem, "a;;<Primary>a");
  application->change(selectAll, [&](auto& item) {
    item.onAction = [&] { application->change(text, [](auto& all) { all.selectionEnd = 9; }); };
  });
  int presses = 0;
  application->change(editor.copy, [&](auto& item) {
    item.onAction = [&] {
      if (++presses < 2) return;
      application->change(text, [&](auto& shown) {
        pasteboard.setString(shown.text.left(shown.selectionEnd).toStdString());
      });
      ++pasteboard.changes;
    };
  });
  const auto element = road();
  EXPECT_TRUE(element->copyToClipboard());
  EXPECT_EQ(pasteboard.string(), "some");
}

TEST_F(HostileApplication, MenuThatCopiesAnotherTextIsNotUsed) {
  const int document = addDocument("another text");
  application->setState(document, focused, false);
  const auto copies = [&](const std::string& text) {
    application->change(editor.copy, [&, text](auto& item) {
      item.onAction = [&, text] {
        pasteboard.setString(text);
        ++pasteboard.changes;
      };
    });
  };
  workspace.applications = {{std::nullopt, "Hostile", getpid()}};
  const auto clean = [&] {
    const auto element = road();
    if (!element || !element->copyToClipboard()) return false;
    pasteboard.setString(QString::fromStdString(*pasteboard.string()).toUpper().toStdString());
    return element->pasteFromClipboard();
  };
  copies("another text");
  // An entry is asked itself, a document once the menu has shown that it acts elsewhere.
  for (const bool isEntry : {true, false}) {
    const int text =
        isEntry ? addText(editor.window, atspirole::entry, "one two") : addDocument("one two");
    application->change(text, [](auto& changed) { changed.selectionEnd = 3; });
    EXPECT_TRUE(clean());
    EXPECT_EQ(application->textOf(text), "ONE two");
    EXPECT_TRUE(clean()) << "without a selection";
    EXPECT_EQ(application->textOf(text), "ONE TWO");
    application->setState(text, focused, false);
  }
  const int readOnly = addDocument("one two 😀");
  application->change(readOnly, [](auto& changed) {
    changed.isEditable = false;
    changed.selectionEnd = 3;
  });
  pasteboard.setString("before");
  const auto element = road();
  EXPECT_FALSE(press(*element->menuItemWithShortcut("C", "0")));
  EXPECT_EQ(pasteboard.string(), "before");
  EXPECT_FALSE(element->pasteFromClipboard());
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("copies another text"));
  // Line ends and blanks differ between what is told and what is copied.
  application->change(readOnly, [](auto& changed) { changed.text = "one\n two 😀"; });
  application->change(readOnly, [](auto& changed) { changed.selectionEnd = changed.text.size(); });
  copies("one\r\n\u00a0two 😀");
  EXPECT_TRUE(reaches(*find("V"), editor.paste));
  EXPECT_TRUE(press(*find("C")));
  EXPECT_EQ(pasteboard.string(), "one\r\n\u00a0two 😀");
  EXPECT_EQ(application->textOf(document), "another text");
}

TEST_F(HostileApplication, NothingIsCopiedWhereTheFocusIsNoText) {
  const int list = application->add(editor.window, atspirole::tree);
  application->add(editor.edit, atspirole::menuItem, "a;;<Primary>a");
  application->setState(list, focused, true);
  const auto element = road();
  ASSERT_TRUE(element);
  application->takeCalls();
  EXPECT_FALSE(element->copyToClipboard());
  EXPECT_EQ(application->takeCalls()["DoAction"], 0);
  EXPECT_FALSE(press(*element->menuItemWithShortcut("C", "0")));
  EXPECT_THAT(accessibility->availability().reason, HasSubstr("is no text"));
  // A cell that is written into is one, and so is what has the focus besides.
  application->setState(list, editable, true);
  EXPECT_TRUE(find("C")->enabled());
  application->setState(list, editable, false);
  addDocument("text");
  EXPECT_TRUE(reaches(*find("V"), editor.paste));
}

TEST_F(HostileApplication, SelectionThatGoesWithThePressOfAShortcutIsNotTakenForNone) {
  const int entry = addText(editor.window, atspirole::entry, "anna, bert");
  surroundings.givenUp = std::chrono::steady_clock::now();
  EXPECT_FALSE(road()->copyToClipboard());
  EXPECT_THAT(told.back(), HasSubstr("was dropped"));
  application->change(entry, [](auto& changed) { changed.selectionEnd = 4; });
  EXPECT_TRUE(road()->copyToClipboard());
  EXPECT_EQ(pasteboard.string(), "anna");
}

TEST_F(HostileApplication, CellsOfASpreadsheetAreCleanedOneByOne) {
  const int sheet = application->add(editor.window, atspirole::table);
  for (const int state : {editable, focused}) application->setState(sheet, state, true);
  std::string copied = "one\n";
  application->change(editor.copy, [&](auto& item) {
    item.onAction = [&] {
      pasteboard.setString(copied);
      ++pasteboard.changes;
    };
  });
  EXPECT_TRUE(press(*find("C")));
  EXPECT_TRUE(reaches(*find("V"), editor.paste));
  pasteboard.setString("two\nlines");
  EXPECT_FALSE(reaches(*find("V"), editor.paste));
  EXPECT_THAT(told.back(), HasSubstr("several cells"));
  copied = "one\ttwo\n";
  EXPECT_FALSE(press(*find("C")));
  EXPECT_EQ(pasteboard.string(), "two\nlines");
  EXPECT_THAT(told.back(), HasSubstr("one cell at a time"));
}

TEST_F(HostileApplication, WindowThatAPasteOpensIsTold) {
  application->change(editor.paste, [&](auto& item) {
    item.onAction = [&] { application->add(FakeAtspiApplication::root, atspirole::dialog); };
  });
  EXPECT_TRUE(press(*find("V")));
  EXPECT_THAT(told, ElementsAre(HasSubstr("has opened a window")));
}

TEST_F(HostileApplication, MenuOfGeckoIsOpenedForPasteAloneAndClosedByThePress) {
  application->setToolkit("Gecko");
  const int text = addDocument("one two");
  const std::vector<int> items{editor.copy, editor.paste};
  application->change(editor.edit, [&](auto& menu) {
    menu.children.clear();
    menu.onAction = [&, items] {
      application->change(editor.edit, [&](auto& opened) { opened.children = items; });
    };
  });
  const auto element = road();
  workspace.applications = {{std::nullopt, "Hostile", getpid()}};
  EXPECT_TRUE(element->copyToClipboard());
  EXPECT_EQ(pasteboard.string(), "one two");
  EXPECT_EQ(application->takeCalls()["DoAction"], 0);
  EXPECT_TRUE(reaches(*element->menuItemWithShortcut("V", "0"), editor.paste));
  EXPECT_EQ(application->takeCalls()["DoAction"], 2) << "the menu and the item";

  application->setState(text, editable, false);
  EXPECT_FALSE(find("V")->enabled());
  EXPECT_EQ(application->takeCalls()["DoAction"], 0);
}

TEST_F(HostileApplication, TerminalWithoutASelectionIsLeftAlone) {
  const int terminal = addText(editor.window, atspirole::terminal, "$ ls\n$ ");
  application->add(editor.edit, atspirole::menuItem, "a;;<Primary>a");
  application->takeCalls();
  EXPECT_FALSE(road()->copyToClipboard());
  EXPECT_EQ(application->takeCalls()["DoAction"], 0);
  EXPECT_THAT(told.back(), HasSubstr("nothing is selected"));
  application->change(terminal, [](auto& changed) { changed.selectionEnd = 4; });
  EXPECT_TRUE(find("C")->enabled());
}

TEST_F(HostileApplication, TerminalsOwnCopyKeysAreShownAsPlain) {
  for (const int item : {editor.copy, editor.paste})
    application->change(item, [](auto& changed) {
      changed.keyBinding = changed.keyBinding.replace("<Primary>", "<Primary><Shift>");
    });
  EXPECT_TRUE(find("C"));
  EXPECT_TRUE(find("V"));

  application->add(editor.edit, atspirole::menuItem, "x;;<Primary>a");
  EXPECT_FALSE(find("C"));
}

TEST_F(HostileApplication, NamesTellWhereKeysDoNot) {
  const auto call = [&](int item, const QString& name, const QString& keys) {
    application->change(item, [&](auto& changed) {
      changed.name = name;
      changed.keyBinding = keys;
    });
  };
  const int selectAll = application->add(editor.edit, atspirole::menuItem);
  call(selectAll, "Select All", "Alt+S");
  call(editor.copy, "Copy", "c;<Alt>e:c;");
  EXPECT_TRUE(reaches(*find("C"), editor.copy)) << "Paste has its keys";
  EXPECT_TRUE(reaches(*find("A"), selectAll));
  call(editor.paste, "Paste", "");
  EXPECT_TRUE(reaches(*find("V"), editor.paste));
  call(editor.paste, "Put in", "Ctrl+P");
  EXPECT_FALSE(find("C")) << "without Paste it may copy anything";

  call(editor.paste, "Paste", "Ctrl+V");
  call(editor.copy, "Copy Password", "Ctrl+C");
  EXPECT_FALSE(find("C"));
  EXPECT_TRUE(find("V"));
}

TEST_F(HostileApplication, FullerOfTwoBarsAndPopupsInBetween) {
  const int otherBar = application->add(editor.window, atspirole::menuBar);
  int copy = 0;
  for (int i = 0; i < 3; ++i) {
    const int item = application->add(otherBar, atspirole::menuItem);
    const int popup = application->add(item, atspirole::popupMenu);
    const int submenu = application->add(popup, atspirole::menuItem);
    copy = application->add(application->add(submenu, atspirole::popupMenu), atspirole::menuItem,
                            i == 2 ? "Ctrl+C" : "");
  }
  const auto found = find("C");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->parent()->role(), "AXMenu");
  EXPECT_EQ(found->parent()->parent()->role(), "AXMenuItem");
  EXPECT_TRUE(reaches(*found, copy));
}

TEST_F(HostileApplication, InnerOfTwoEqualBars) {
  const int panel = application->add(editor.window, atspirole::panel);
  const int bar = application->add(panel, atspirole::menuBar);
  application->change(bar, [&](auto& inner) {
    const int edit = application->add(editor.window, atspirole::menu);
    inner.children = {edit, application->add(editor.window, atspirole::menu)};
    application->add(edit, atspirole::menuItem, "c;;<Primary>c");
  });
  const auto copy = find("C");
  ASSERT_TRUE(copy);
  EXPECT_FALSE(reaches(*copy, editor.copy));
}

TEST_F(HostileApplication, SingleMenuIsFoundToo) {
  application->change(editor.bar, [](auto& bar) { bar.children.erase(bar.children.begin()); });
  EXPECT_TRUE(find("C"));
}

TEST_F(HostileApplication, WindowWithTheInputIsTheOneThatIsReached) {
  const Editor second = addEditor();
  application->setState(editor.window, active, false);
  application->setState(second.window, active, true);
  EXPECT_TRUE(reaches(*find("C"), second.copy));
  // Our own menu is open.
  application->setState(second.window, active, false);
  EXPECT_TRUE(reaches(*find("C"), second.copy));

  // It was active before anybody asked.
  application->sendWindowEvent(editor.window, "Deactivate");
  EXPECT_TRUE(desktop::until([&] { return reaches(*find("C"), editor.copy); }, 5s));

  const int dialog = application->add(FakeAtspiApplication::root, atspirole::dialog);
  application->setState(dialog, active, true);
  EXPECT_FALSE(find("C"));
  application->setState(dialog, showing, false);
  application->setState(dialog, active, false);
  EXPECT_TRUE(reaches(*find("C"), editor.copy));
}

TEST_F(HostileApplication, FocusThatMovedSinceTheLastRoadIsFollowed) {
  const int dialog = addDialog();
  const int first = addText(dialog, atspirole::text, "first");
  pasteboard.setString("new ");
  EXPECT_TRUE(press(*find("V")));
  application->setState(first, focused, false);
  const int second = addText(dialog, atspirole::text, "second");
  application->setState(second, focused, false);
  application->setState(dialog, active, false);  // our own menu is open
  const auto element = road();
  std::thread inputComesBack([&] {
    std::this_thread::sleep_for(100ms);
    application->setState(second, focused, true);
    application->setState(dialog, active, true);
  });
  EXPECT_TRUE(press(*element->menuItemWithShortcut("V", "0")));
  inputComesBack.join();
  EXPECT_EQ(application->textOf(first), "new first");
  EXPECT_EQ(application->textOf(second), "new second");
}

TEST_F(HostileApplication, FocusIsRememberedWhileItIsHidden) {
  const int panel = application->add(editor.window, atspirole::panel);
  const int entry = application->add(panel, atspirole::entry);
  EXPECT_EQ(road()->role(), "AXWindow");
  application->setState(entry, focused, true);
  EXPECT_EQ(road()->role(), "AXTextField");
  application->setState(entry, focused, false);
  EXPECT_EQ(road()->role(), "AXTextField");
  application->setState(entry, showing, false);
  EXPECT_EQ(road()->role(), "AXWindow");
}

}  // namespace
}  // namespace qf
