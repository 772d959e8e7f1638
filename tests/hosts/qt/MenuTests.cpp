// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QScreen>
#include <QTest>

#include "host/EventState.h"
#include "hosts/qt/KeyEquivalent.h"
#include "hosts/qt/MenuColor.h"
#include "hosts/qt/QtMenu.h"
#include "hosts/qt/QtMenuPresenter.h"
#include "tests/desktop/Keyboard.h"
#include "tests/hosts/qt/SampleMenu.h"

namespace qf {
namespace {

using testing::ElementsAre;

constexpr Color red{0.8, 0, 0};
const QColor drawnRed(204, 0, 0);

/// An opened menu on the screen.
class OpenMenu {
 public:
  explicit OpenMenu(SampleMenu& sample, QRect place = {100, 100, 0, 0})
      : _menu(new QtMenu(sample.menu)) {
    _menu->openBeside(place);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(_menu));
    _picture = _menu->grab().toImage();
  }
  ~OpenMenu() {
    if (_menu) _menu->close();
    QTest::qWait(0);
  }

  QtMenu* operator->() const { return _menu; }
  bool isOpen() const { return !_menu.isNull() && _menu->isVisible(); }
  QAction* row(int index) const { return _menu->actions().at(index); }
  QMenu* submenu(int index) const { return row(index)->menu(); }

  void click(int index) const {
    QTest::mouseClick(_menu, Qt::LeftButton, {}, _menu->actionGeometry(row(index)).center());
  }

  /// Where the row shows exactly this colour, in coordinates of the menu; empty for nowhere.
  QRect inked(int index, const QColor& color) const {
    QRect ink;
    const QRect area = _menu->actionGeometry(row(index));
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (_picture.pixelColor(x, y) == color) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }

 private:
  QPointer<QtMenu> _menu;
  QImage _picture;
};

QColor themeText() {
  return QApplication::palette("QMenu").color(QPalette::Active, QPalette::Text);
}

TEST(Menu, DrawsRowsAsTheModelSays) {
  SampleMenu model([](SampleMenu& sample) {
    sample.add("Case & more", "doLabel:", 0, red);
    sample.add("Plain", "applyItem:", 1);
    sample.add("Red", "applyItem:", 1, red);
    sample.menu->addItem(std::make_shared<MenuItem>("Leave Results on Clipboard", "", ""));
    sample.menu->addItem(MenuItem::separatorItem());
    sample.add("Standard", "changeGroup:");
    MenuItem& palette = sample.add("Show Palette", "togglePalette:");
    palette.keyEquivalent = "K";
    palette.keyEquivalentModifierMask = modifier::control | modifier::option;
  });
  const OpenMenu menu(model);
  EXPECT_THAT(model.calls, ElementsAre("update", "open"));

  EXPECT_FALSE(menu.row(0)->isEnabled());
  EXPECT_FALSE(menu.inked(0, drawnRed).isEmpty()) << "a label keeps its colour";
  EXPECT_FALSE(menu.row(3)->isEnabled());
  EXPECT_TRUE(menu.inked(3, themeText()).isEmpty()) << "a note is fainter than what can be picked";

  const QRect plain = menu.inked(1, themeText());
  const QRect colored = menu.inked(2, drawnRed);
  const QRect group = menu.inked(5, themeText());
  EXPECT_TRUE(menu.inked(2, themeText()).isEmpty());
  const int blank = menu->fontMetrics().horizontalAdvance(' ');
  EXPECT_GE(colored.left() - menu.inked(0, drawnRed).left(), 3 * blank);
  EXPECT_NEAR(colored.left(), plain.left(), blank);

  EXPECT_TRUE(menu.row(4)->isSeparator());
  EXPECT_TRUE(menu.row(5)->isChecked());
  EXPECT_FALSE(menu.row(2)->isCheckable());
  EXPECT_LT(group.left(), plain.left());

  EXPECT_TRUE(menu.row(6)->shortcut().isEmpty()) << "drawn, never live";
  EXPECT_GT(menu.inked(6, themeText()).right(), menu->width() - 3 * menu->fontMetrics().height())
      << "the key stands at the right";
}

TEST(Menu, DrawsALabelAsOneAlsoWhereItCanBePicked) {
  const Color black = Color::black();
  SampleMenu model([&](SampleMenu& sample) {
    sample.add("Label", "applyItemAlt:", 0, black).representedObject = "#LABEL:Label";
    sample.add("Label", "applyItemAlt:", 1, black).representedObject = "#CLEANER";
  });
  const OpenMenu menu(model);
  EXPECT_TRUE(menu.row(0)->isEnabled());
  EXPECT_TRUE(menu.inked(0, Qt::black).isEmpty()) << "fainter than a cleaner";
  EXPECT_FALSE(menu.inked(1, Qt::black).isEmpty());
  EXPECT_TRUE(menu.row(0)->font().bold());
  EXPECT_FALSE(menu.row(1)->font().bold());
}

TEST(Menu, IsFoundByItsTitlesAlone) {
  SampleMenu model([](SampleMenu& sample) {
    sample.add("Fold & Wrap", "applyItem:", 1).keyEquivalent = "Space";
  });
  const OpenMenu menu(model);
  const QAccessibleInterface* application = QAccessible::queryAccessibleInterface(qApp);
  EXPECT_EQ(application->child(application->childCount() - 1)->object(), menu.operator->())
      << "a menu of no window is still found from the application";
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(menu.operator->())->child(0);
  EXPECT_EQ(row->text(QAccessible::Name), "Fold & Wrap");

  // What a screen reader does leaves the menu open; the pick closes it.
  row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(QTest::qWaitFor([&] { return model.calls.back() == "Fold & Wrap"; }));
  EXPECT_FALSE(menu.isOpen());
}

TEST(Menu, PickActsOnceTheMenuIsGone) {
  SampleMenu model([](SampleMenu& sample) {
    sample.add("First");
    sample.add("Second");
  });
  bool wasFree = false;
  bool wasOpen = true;
  const OpenMenu menu(model);
  model.whenPicked = [&] {
    wasFree = desktop::Keyboard().canTakeAll();
    wasOpen = menu.isOpen();
  };
  EXPECT_FALSE(desktop::Keyboard().canTakeAll());
  menu.click(1);
  EXPECT_THAT(model.calls, ElementsAre("update", "open")) << "not from inside the click";
  EXPECT_TRUE(QTest::qWaitFor([&] { return model.calls.size() == 3; }));
  EXPECT_EQ(model.calls.back(), "Second");
  EXPECT_FALSE(wasOpen);
  EXPECT_TRUE(wasFree);
}

TEST(Menu, SubmenuIsDrawnWhenOpenedFromTheItemsOfTheOpening) {
  SampleMenu model([](SampleMenu& sample) {
    const auto submenu = std::make_shared<Menu>("subgroup");
    sample.add("Groups", "unknown:").submenu = submenu;
    for (const char* name : {"Basics", "Standard"}) sample.addTo(*submenu, name, "changeGroup:");
  });
  const OpenMenu menu(model);
  EXPECT_TRUE(menu.row(0)->isEnabled());
  EXPECT_TRUE(menu.submenu(0)->isEmpty());

  model.menu->removeAllItems();
  menu.click(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return menu.submenu(0)->isVisible(); }));
  ASSERT_EQ(menu.submenu(0)->actions().size(), 2);
  EXPECT_FALSE(menu.submenu(0)->actions().at(0)->isChecked());
  EXPECT_TRUE(menu.submenu(0)->actions().at(1)->isChecked());

  QTest::keyClick(menu.submenu(0), Qt::Key_Down);
  QTest::keyClick(menu.submenu(0), Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return model.calls.back() == "Basics"; }));
}

TEST(Menu, StaysOnTheScreenAtAnyLength) {
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  for (const int count : {3, 400}) {
    SampleMenu model([&](SampleMenu& sample) {
      for (int i = 1; i <= count; ++i) sample.add("Item " + std::to_string(i));
    });
    QtMenuPresenter presenter;
    presenter.popUpMenu(model.menu, {screen.right() - 2.0, screen.bottom() - 2.0});
    QPointer<QWidget> popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup && QTest::qWaitForWindowExposed(popup));
    EXPECT_TRUE(screen.contains(popup->geometry())) << count;
    QTest::keyClick(popup, Qt::Key_End);
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return model.calls.back() == "Item " + std::to_string(count); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return popup.isNull(); })) << "kept only until it closes";
  }
}

TEST(Menu, OpensOnlyWithSomethingToPick) {
  for (const int separators : {0, 2}) {
    SampleMenu model([&](SampleMenu& sample) {
      for (int i = 0; i < separators; ++i) sample.menu->addItem(MenuItem::separatorItem());
    });
    QtMenuPresenter().popUpMenu(model.menu, {100, 100});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << separators;
    EXPECT_TRUE(desktop::Keyboard().canTakeAll()) << separators;
  }
}

TEST(Keys, AreWrittenAsOnThisDesktop) {
  EXPECT_EQ(withKeysAsWritten("⌃⌥K"), "Ctrl+Alt+K");
  EXPECT_EQ(withKeysAsWritten("⌃⌥⇧⌘⇞"), "Ctrl+Alt+Shift+Super+Page Up");
  EXPECT_EQ(withKeysAsWritten("⇧⌘"), "Shift+Super+") << "of modifiers alone";
  EXPECT_EQ(withKeysAsWritten("Use ⌘Space or ⌥F5, not ⎋"), "Use Super+Space or Alt+F5, not ⎋");
  EXPECT_EQ(withKeysAsWritten("المفاتيح ⌃⌥/"), "المفاتيح \u2066Ctrl+Alt+/\u2069");
}

TEST(Menu, ColorsStayReadableOnDarkMenus) {
  const QColor dark(45, 45, 45);
  const Color navy{0, 0, 0.5};
  EXPECT_EQ(readableColor(navy, Qt::white).rgb(), qRgb(0, 0, 128));
  const QColor lightened = readableColor(navy, dark);
  EXPECT_EQ(lightened.hslHue(), QColor(0, 0, 128).hslHue());
  EXPECT_GT(lightened.lightness(), 150);
  EXPECT_EQ(readableColor({1, 1, 0}, dark).rgb(), qRgb(255, 255, 0));
  EXPECT_EQ(readableColor({-1, 7, 0}, Qt::white).rgb(), qRgb(0, 255, 0));
}

}  // namespace
}  // namespace qf
