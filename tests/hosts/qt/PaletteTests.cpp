// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHelpEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextLayout>
#include <QToolButton>
#include <QToolTip>
#include <QWindow>
#include <set>

#include "host/EventState.h"
#include "hosts/qt/AddedModifiers.h"
#include "hosts/qt/PanelSystem.h"
#include "hosts/qt/PlaceInView.h"
#include "hosts/qt/QtPaletteTable.h"
#include "hosts/qt/QtPaletteWindow.h"
#include "tests/hosts/qt/Contrast.h"

namespace qf {
namespace {

using testing::ElementsAre;

/// Rows by their first character: "=" a label, "-" a separator, anything else a cleaner.
class SamplePalette final : public PaletteWindowDelegate, public PanelSystem {
 public:
  std::size_t numberOfRows() const override { return rows.size(); }
  std::string objectValueForRow(std::size_t row) const override { return at(row); }
  PaletteCell cellForRow(std::size_t row) const override {
    return {shouldSelectRow(row), {at(row) == "-" ? " " : at(row), color, Font{"", 11}}};
  }
  double heightOfRow(std::size_t row) const override { return at(row) == "-" ? 13 : 26; }
  std::optional<std::string> toolTipForRow(std::size_t row) const override {
    return added.flags() == modifier::command ? "about " + at(row) : at(row);
  }
  bool shouldSelectRow(std::size_t row) const override { return !strchr("=-", at(row)[0]); }
  void apply() override {
    const auto row = panel.cleanerListTableView().selectedRow();
    done.push_back(row ? rows[*row] : "nothing");
    if (added.flags() == modifier::option) done.back() += " on the clipboard";
    panel.cleanerListTableView().deselectAll();
  }
  void editGroup() override { done.push_back("edit"); }
  void controlTextDidChange() override {
    done.push_back("search " + panel.searchField().stringValue());
  }
  void windowDidMove() override { done.push_back("moved"); }
  void windowDidResize() override {}
  void prepare(QWindow&) override {}
  void willTakeKeyboard(QWindow&) override {}
  void giveKeyboardBack(QWindow&) override {}

  void show(std::vector<std::string> newRows) {
    rows = std::move(newRows);
    panel.cleanerListTableView().reloadData();
    panel.orderFront();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel));
  }
  QtPaletteTable& table() { return *panel.findChild<QtPaletteTable*>(); }
  QLineEdit& field() { return *panel.findChild<QLineEdit*>(); }
  void click(int row) {
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, table().cellRect(row).center());
  }
  QImage picture(const QString& name) {
    const QImage image = panel.grab().toImage();
    const QString folder = qEnvironmentVariable("QF_PICTURES");
    if (!folder.isEmpty()) image.save(folder + "/" + name + ".png");
    return image;
  }

  std::vector<std::string> rows;
  Color color;
  std::vector<std::string> done;
  mutable std::set<std::size_t> asked;
  AddedModifiers added;
  QtPaletteWindow panel{*this,
                        *this,
                        added,
                        {.takesKeyboard = [] { return false; }, .fault = [] { return QString(); }}};

 private:
  const std::string& at(std::size_t row) const {
    asked.insert(row);
    return rows.at(row);
  }
};

TEST(PalettePanel, AsksOnlyForTheRowsInView) {
  SamplePalette sample;
  sample.show(std::vector<std::string>(100'000, "Cleaner"));
  QTest::keyClick(&sample.field(), Qt::Key_End, Qt::ControlModifier);
  sample.panel.repaint();
  EXPECT_EQ(sample.table().highlightedRow(), 99'999);
  EXPECT_FALSE(sample.table().cellRect(99'999).isEmpty());
  EXPECT_LT(sample.asked.size(), 100U);
}

TEST(PalettePanel, KeysSkipWhatIsNoCleaner) {
  SamplePalette sample;
  sample.show({"=Case", "Upper", "-", "=More", "Lower", "=End"});
  QTest::keyClick(&sample.field(), Qt::Key_Down);
  QTest::keyClick(&sample.field(), Qt::Key_Down);
  QTest::keyClick(&sample.field(), Qt::Key_Down);
  QTest::keyClick(&sample.field(), Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(&sample.field(), Qt::Key_Up);
  QTest::keyClick(&sample.field(), Qt::Key_Up);
  QTest::keyClick(&sample.field(), Qt::Key_Enter);
  QTest::keyClick(&sample.field(), Qt::Key_PageDown);
  QTest::keyClick(&sample.field(), Qt::Key_Return);
  EXPECT_THAT(sample.done, ElementsAre("Lower", "Upper", "Lower"));

  sample.done.clear();
  sample.panel.findChild<QPushButton*>()->setFocus();
  QTest::keyClick(sample.panel.focusWidget(), Qt::Key_Z);
  QKeyEvent unused(QEvent::KeyPress, Qt::Key_Udiaeresis, Qt::ControlModifier, "ü");
  QCoreApplication::sendEvent(&sample.field(), &unused);
  EXPECT_THAT(sample.done, ElementsAre("search z"));
  QTest::keyClick(&sample.field(), Qt::Key_Escape);
  EXPECT_THAT(sample.done, ElementsAre("search z", "search "));
  EXPECT_TRUE(sample.panel.isVisible());
  QTest::keyClick(&sample.field(), Qt::Key_Escape);
  EXPECT_FALSE(sample.panel.isVisible());
}

TEST(PalettePanel, OffersTheClipboardAndHelpWithoutKeys) {
  SamplePalette sample;
  sample.show({"Upper", "A name that is longer than the panel is wide, by far"});
  sample.click(0);
  auto* clipboardOnly = sample.panel.findChild<QCheckBox*>();
  QTest::mouseClick(clipboardOnly, Qt::LeftButton, {}, {8, clipboardOnly->height() / 2});
  sample.click(0);
  EXPECT_THAT(sample.done, ElementsAre("Upper", "Upper on the clipboard"));

  const auto toolTip = [&](int row) {
    const QPoint place = sample.table().cellRect(row).center();
    QHelpEvent help(QEvent::ToolTip, place, sample.table().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(sample.table().viewport(), &help);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(toolTip(0), "<p>about Upper</p>");
  EXPECT_THAT(toolTip(1), testing::StartsWith("<p><b>A name that is longer than")) << "cut off";
}

TEST(PalettePanel, ShowsTheFirstRowOfAnotherGroupAndTheOldSearchSelected) {
  SamplePalette sample;
  sample.show({"Upper", "Lower", "Trim"});
  QTest::keyClicks(&sample.field(), "r");
  sample.table().setHighlightedRow(2);
  // As the palette changes its group: the text first, its rows after it.
  static_cast<PaletteWindow&>(sample.panel).searchField().setStringValue("");
  sample.rows = {"=Label", "Upper"};
  sample.table().reloadData();
  EXPECT_TRUE(QTest::qWaitFor([&] { return sample.table().highlightedRow() == 1; }));
  const QObject* clearButton = sample.field().findChild<QToolButton*>();
  EXPECT_TRUE(QTest::qWaitFor([&] { return clearButton->property("opacity") == 0.0; }));

  sample.done.clear();
  QTest::keyClicks(&sample.field(), "up");
  sample.panel.orderOut();
  sample.panel.orderFront();
  EXPECT_FALSE(QGuiApplication::clipboard()->ownsSelection()) << "the editor would lose its own";
  QTest::mouseClick(&sample.field(), Qt::LeftButton);
  QTest::keyClicks(&sample.field(), "x");
  EXPECT_EQ(sample.done.back(), "search x");
}

TEST(PalettePanel, AgreesToCloseAndCanBeShownAgain) {
  SamplePalette sample;
  sample.show({"Upper"});
  EXPECT_TRUE(sample.panel.windowHandle()->close()) << "the end of a session waits for it";
  EXPECT_FALSE(sample.panel.isVisible());
  sample.show({"Upper"});
}

TEST(PalettePanel, ClicksSelectOnlyCleaners) {
  SamplePalette sample;
  sample.show({"=Case", "Upper", "-", "Lower"});
  sample.click(1);
  sample.click(0);
  sample.click(2);
  sample.click(3);
  const QPoint again = sample.table().cellRect(3).center();
  QTest::mouseDClick(sample.table().viewport(), Qt::LeftButton, {}, again);
  QTest::mouseRelease(sample.table().viewport(), Qt::LeftButton, {}, again);
  EXPECT_THAT(sample.done, ElementsAre("Upper", "nothing", "nothing", "Lower", "Lower"));
  EXPECT_EQ(sample.table().selectedRow(), std::nullopt);

  sample.done.clear();  // let go elsewhere
  QTest::mousePress(sample.table().viewport(), Qt::LeftButton, {},
                    sample.table().cellRect(1).center());
  QTest::mouseRelease(sample.table().viewport(), Qt::LeftButton, {},
                      sample.table().cellRect(3).center());
  EXPECT_TRUE(sample.done.empty());
}

TEST(PalettePanel, RowsOverlapAndSeparatorsAreHalf) {
  SamplePalette sample;
  sample.panel.cleanerListTableView().setIntercellSpacing({-2, -1});
  sample.show({"One", "-", "Two"});
  const QRect one = sample.table().cellRect(0);
  const QRect two = sample.table().cellRect(2);
  EXPECT_EQ(one.height(), 26);
  EXPECT_EQ(two.top() - one.top(), 25 + 12);
  EXPECT_EQ(one.width(), sample.table().viewport()->width());
}

TEST(PalettePanel, TextCanBeReadOnEveryTheme) {
  const QPalette before = QApplication::palette();
  SamplePalette sample;
  sample.panel.namePopup().setTitle("Standard");
  sample.show({"IIIIIIIIIII", "=IIIIIIIIIII"});
  const Color colors[] = {{1, 1, 0}, {0, 0, 0.5}, {1, 0, 0}, {0, 0, 0}, {0.6, 0.6, 0.6}, {1, 1, 1}};
  for (const bool isDark : {false, true}) {
    QApplication::setPalette(isDark ? darkTheme() : before);  // with the panel open
    QTest::qWait(0);
    const QPalette field = sample.field().palette();
    EXPECT_GE(contrast(field.color(QPalette::PlaceholderText), field.color(QPalette::Base)), 4.5);
    ASSERT_EQ(field.color(QPalette::Base).lightness() < 100, isDark);
    for (const Color& color : colors) {
      sample.color = color;
      sample.table().viewport()->update();
      const QImage image = sample.picture(isDark ? "contrast-dark" : "contrast-light");
      const auto shown = [&image](int x, int y) {
        return image.pixelColor((QPointF(x, y) * image.devicePixelRatio()).toPoint());
      };
      ASSERT_EQ(shown(3, 200).lightness() < 100, isDark);
      for (const int row : {0, 1}) {
        const QRect cell = sample.table().cellRect(row).translated(
            sample.table().viewport()->mapTo(&sample.panel, QPoint(0, 0)));
        double least = 21;  // of the text's own colour against every shade of the ground
        for (int y = cell.top() + 4; y < cell.bottom() - 4; ++y) {
          const QColor ground = shown(cell.left() + 4, y);
          double best = 1;
          for (int x = cell.left() + 8; x < cell.left() + 60; ++x)
            for (int inkY = cell.center().y() - 2; inkY <= cell.center().y() + 2; ++inkY)
              best = std::max(best, contrast(shown(x, inkY), ground));
          least = std::min(least, best);
        }
        EXPECT_GE(least, 4.5) << isDark << " " << row << " " << color.red << color.green
                              << color.blue;
      }
    }
  }
  QApplication::setPalette(before);
}

TEST(PalettePanel, NamesOfAllKindsHaveRoom) {
  const std::string longName = "A cleaner with a name that is much too long for any palette";
  SamplePalette sample;
  sample.panel.namePopup().setTitle(longName);
  sample.show({"=  Ünïcödé Ä̂ǵ̈", "🧹 Sweep 👩‍👩‍👧‍👦",
               "e\xCC\x81\xCC\xA3\xCC\x82 Å\xCC\x8A\xCC\xA7", longName, "تنظيف النص",
               "<b>& not markup</b>", "Line\nbreak"});
  QFont font = sample.table().font();
  font.setPointSizeF(11);
  for (const std::string& name : sample.rows) {
    QTextLayout layout(QString::fromStdString(name).replace('\n', ' '), font);
    layout.beginLayout();
    const double height = layout.createLine().height();
    layout.endLayout();
    EXPECT_LE(height, sample.table().rowHeight()) << name;
  }
  EXPECT_LT(sample.panel.width(), 300) << "no name widens it";
  sample.picture("names");
  for (const bool mirrored : {true, false}) {
    QApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    if (mirrored) sample.picture("names-right-to-left");
  }
}

TEST(PalettePanel, ComesBackIntoView) {
  const QList<QRect> screens = {{0, 0, 1000, 800}, {1000, 0, 800, 600}};
  const QSize size(200, 400);
  const auto placed = [&](int x, int y) { return placeInView({QPoint(x, y), size}, screens); };
  EXPECT_EQ(placed(1500, 100), QRect(QPoint(1500, 100), size));
  EXPECT_EQ(placed(900, 700), QRect(QPoint(900, 700), size)) << "its top edge can be taken";
  EXPECT_EQ(placed(5000, 100), QRect(QPoint(1600, 100), size));
  EXPECT_EQ(placed(-5000, -5000), QRect(QPoint(0, 0), size));
  EXPECT_EQ(placed(1200, 590), QRect(QPoint(1200, 200), size));
  EXPECT_EQ(placeInView({5000, 0, 3000, 3000}, screens), QRect(1000, 0, 800, 600));

  SamplePalette sample;
  sample.panel.setFrameFromString("9000 9000 250 300");
  sample.show({"Upper"});
  EXPECT_TRUE(sample.panel.screen()->availableGeometry().contains(sample.panel.geometry()));
  EXPECT_EQ(sample.panel.stringWithSavedFrame(), "9000 9000 250 300")
      << "the screen that it was on may come back";
  sample.panel.move(50, 60);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !sample.done.empty(); }));
  EXPECT_THAT(sample.done, ElementsAre("moved"));
  EXPECT_EQ(sample.panel.stringWithSavedFrame(), "50 60 250 300");
  for (const char* broken : {"", "1 2 3", "1 2 3 x", "0 0 -5 5", "99999999999 0 1 1"}) {
    sample.panel.setFrameFromString(broken);
    EXPECT_EQ(sample.panel.stringWithSavedFrame(), "50 60 250 300") << broken;
  }
}

}  // namespace
}  // namespace qf
