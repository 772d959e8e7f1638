// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "tests/support/FakeEditor.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/LogCapture.h"
#include "textaccess/QFTextAccess.h"
#include "textaccess/QFUIElement.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t editorProcess = 41;

class QFUIElementTest : public testing::Test {
 protected:
  QFUIElementTest() {
    workspace.applications = {{"org.example.editor", "Editor", editorProcess}};
    editor.text = "one two";
  }

  QFUIElement focused() { return *QFUIElement::frontAppFocusedElement(editorProcess, access); }
  QFUIElement wrap(const FakeAccessibilityElement::Ref& element) { return {access, element}; }

  FakeAccessibility accessibility;
  FakePasteboard pasteboard;
  FakeWorkspace workspace;
  QFTextAccess access{accessibility, pasteboard, workspace};
  FakeEditor editor{accessibility, pasteboard, editorProcess};
  LogCapture log;
};

TEST_F(QFUIElementTest, ReadsEachKindOfAttribute) {
  const auto raw = FakeAccessibilityElement::make("AXSlider");
  raw->add(editor.textArea);
  raw->attributes = {
      {"point", Point{1, 2}}, {"size", Size{3, 4}},    {"rect", Rect{{1, 2}, {3, 4}}},
      {"range", Range{5, 6}}, {"boolean", true},       {"plain boolean", Value(true)},
      {"number", Value(0)},   {"text", Value("text")}, {"no element", AccessibilityElementRef()}};
  const QFUIElement element = wrap(raw);
  const auto read = [&](std::string_view name) { return element.valueForAttribute(name); };
  EXPECT_EQ(std::get<Point>(*read("point")), (Point{1, 2}));
  EXPECT_EQ(std::get<Size>(*read("size")), (Size{3, 4}));
  EXPECT_EQ(std::get<Rect>(*read("rect")), (Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(std::get<Range>(*read("range")), (Range{5, 6}));
  EXPECT_TRUE(std::get<bool>(*read("boolean")));
  EXPECT_TRUE(std::get<bool>(*read("plain boolean")));
  EXPECT_EQ(std::get<std::string>(*read("number")), "0");
  EXPECT_EQ(std::get<std::string>(*read("text")), "text");
  EXPECT_EQ(read("no element"), std::nullopt);
  EXPECT_EQ(read("missing"), std::nullopt);
  ASSERT_EQ(element.children().size(), 1u);
  EXPECT_EQ(element.children()[0].elementRef(), editor.textArea);
  EXPECT_EQ(element.attributeNames().size(), raw->attributes.size());
}

TEST_F(QFUIElementTest, KnowsWhereItIs) {
  const QFUIElement element = focused();
  EXPECT_EQ(element.application()->elementRef(), editor.application);
  EXPECT_EQ(element.menuBar()->elementRef(), editor.menuBar);
  EXPECT_EQ(element.processName(), "Editor");
  EXPECT_TRUE(element.isTextField());
  EXPECT_FALSE(element.isEditableTextArea());
  editor.textArea->attributes["AXFocused"] = true;
  EXPECT_TRUE(element.isEditableTextArea());

  editor.textArea->process.reset();
  EXPECT_EQ(element.processID(), -1);
  EXPECT_EQ(element.processName(), std::nullopt);
  EXPECT_FALSE(element.activateProcess());

  EXPECT_EQ(wrap(FakeAccessibilityElement::make("AXWindow")).application(), std::nullopt);
  EXPECT_EQ(QFUIElement::frontAppFocusedElement(7, access), std::nullopt);
  accessibility.systemWide->attributes["AXFocusedUIElement"] =
      AccessibilityElementRef(editor.textArea);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(QFUIElement::focusedElement(access)->elementRef(), editor.textArea);
  }
  EXPECT_EQ(accessibility.systemWideElements, 1);
}

TEST_F(QFUIElementTest, SetsAValueOfTheKindThatIsThere) {
  auto& raw = *editor.textArea;
  raw.attributes = {{"text", Value("old")},      {"number", Value(1.5)},
                    {"boolean", false},          {"point", Point{}},
                    {"element", editor.menuBar}, {"read-only", Value("old")}};
  raw.settable = {"text", "number", "boolean", "point", "element", "missing"};
  QFUIElement element = wrap(editor.textArea);

  EXPECT_TRUE(element.setValue(Value("new"), "text"));
  EXPECT_TRUE(element.setValue(Value("12 apples"), "number"));
  EXPECT_TRUE(element.setValue(Value(1), "boolean"));
  EXPECT_TRUE(element.setValue(Point{1, 2}, "point"));
  EXPECT_TRUE(element.setValue(Value("ignored"), "element"));
  EXPECT_EQ(std::get<Value>(raw.attributes["text"]), Value("new"));
  EXPECT_EQ(std::get<Value>(raw.attributes["number"]), Value(12));
  EXPECT_TRUE(std::get<bool>(raw.attributes["boolean"]));
  EXPECT_EQ(std::get<Point>(raw.attributes["point"]), (Point{1, 2}));
  EXPECT_EQ(std::get<AccessibilityElementRef>(raw.attributes["element"]), editor.menuBar);
  EXPECT_THAT(log.lines, IsEmpty());

  EXPECT_FALSE(element.setValue(Value("new"), "read-only"));
  EXPECT_FALSE(element.setValue(Value("new"), "missing"));
  EXPECT_FALSE(element.setValue(Size{1, 2}, "point"));
  raw.refusesToSet = true;
  EXPECT_FALSE(element.setValue(Value("new"), "text"));
  EXPECT_THAT(log.lines, ElementsAre("read-only is not a writeable attribute",
                                     "error in AXUIElementCopyAttributeValue for attribute missing",
                                     "error in AXUIElementSetAttributeValue for attribute point",
                                     "error in AXUIElementSetAttributeValue for attribute text"));
}

TEST_F(QFUIElementTest, FindsItemsByKeyAndModifiers) {
  const auto press = [] { return true; };
  const auto outerItem = editor.menuAt(2)->add(FakeAccessibilityElement::make("AXMenuItem"));
  const auto submenu = outerItem->add(FakeAccessibilityElement::make("AXMenu"));
  const auto nested = submenu->add(FakeAccessibilityElement::menuItem("X", press));
  editor.menuAt(2)->add(FakeAccessibilityElement::menuItem("X", press));
  const auto decoy = editor.menuAt(2)->add(FakeAccessibilityElement::menuItem("C", press));
  const auto find = [&](std::string_view key, std::string_view modifiers) {
    const auto item = focused().menuItemWithShortcut(key, modifiers);
    return item ? item->elementRef() : nullptr;
  };

  EXPECT_NE(find("C", "0"), nullptr);
  EXPECT_NE(find("C", "0"), decoy) << "the Edit menu is searched before the rest";
  EXPECT_NE(find("C", "0"), find("C", "1"));
  EXPECT_EQ(find("X", "0"), nested) << "the whole bar is searched in depth";
  EXPECT_EQ(find("c", "0"), nullptr);
  EXPECT_EQ(find("S", "1"), nullptr);

  editor.menuAt(3)->removeChildren();
  EXPECT_EQ(find("C", "0"), decoy);
}

TEST_F(QFUIElementTest, SearchesNoMenuBarOfThreeMenus) {
  editor.menuBar->removeChildren();
  for (int i = 0; i < 3; ++i) {
    editor.addMenu()->add(FakeAccessibilityElement::menuItem("C", [] { return true; }));
  }
  EXPECT_FALSE(focused().copyToClipboard());
  EXPECT_FALSE(focused().pasteFromClipboard());
  EXPECT_FALSE(focused().performSelectAll());
  EXPECT_EQ(focused().performCopy(true), "");
  EXPECT_EQ(focused().readString(), "");
  EXPECT_THAT(log.lines, ElementsAre("copyMenuItem element not created",
                                     "Error - unable to perform a Select All",
                                     "Error - unable to perform copy to clipboard action"));
}

TEST_F(QFUIElementTest, CopiesTheSelectionOrEverything) {
  editor.selection = "two";
  EXPECT_EQ(focused().readString(), "two");
  EXPECT_THAT(editor.presses, ElementsAre("Copy"));

  editor.selection.clear();
  editor.presses.clear();
  EXPECT_TRUE(focused().copyToClipboard());
  EXPECT_EQ(pasteboard.string(), "one two");
  EXPECT_THAT(editor.presses, ElementsAre("Select All", "Copy"));

  editor.selection.clear();
  editor.canSelectAll = false;
  EXPECT_FALSE(focused().copyToClipboard());
  EXPECT_EQ(focused().readString(), "");
}

TEST_F(QFUIElementTest, TriesACopyThatChangesNothingOnceMore) {
  pasteboard.setString("old");
  editor.selection = "two";
  editor.copyReaches = false;
  EXPECT_TRUE(focused().copyToClipboard()) << "a time-out cannot be told from success";
  EXPECT_THAT(editor.presses, ElementsAre("Copy", "Select All", "Copy"));
  EXPECT_EQ(focused().performCopy(false), "");
  EXPECT_EQ(pasteboard.string(), "old");
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QFUIElementTest, WaitsForALateCopy) {
  struct LatePasteboard : FakePasteboard {
    std::int64_t changeCount() const override { return ++looks < 4 ? 0 : 1; }
    mutable int looks = 0;
  } late;
  late.setString("arrived");
  QFTextAccess lateAccess(accessibility, late, workspace);
  editor.selection = "two";
  editor.copyReaches = false;
  EXPECT_EQ(QFUIElement(lateAccess, editor.textArea).readString(), "arrived");
  EXPECT_THAT(editor.presses, ElementsAre("Copy"));
}

TEST_F(QFUIElementTest, WritesByPastingIntoTheFrontmostApplication) {
  editor.selection = "two";
  EXPECT_TRUE(focused().writeString("three"));
  EXPECT_EQ(editor.text, "one three");
  EXPECT_THAT(workspace.activated, ElementsAre(editorProcess));

  pasteboard.clearContents();
  EXPECT_FALSE(focused().pasteFromClipboard()) << "Paste is disabled";
  pasteboard.setString("text");
  workspace.applications.clear();
  EXPECT_FALSE(focused().pasteFromClipboard()) << "the application is gone";
  EXPECT_THAT(editor.presses, ElementsAre("Paste"));
}

}  // namespace
}  // namespace qf
