// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QMouseEvent>
#include <QTest>

#include "hosts/qt/Announcer.h"
#include "hosts/qt/QtRecorderView.h"
#include "tests/desktop/Keyboard.h"
#include "tests/hosts/qt/Contrast.h"
#include "tests/support/FakeKeyboardLayout.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

class SilentAnnouncer : public Announcer {
 public:
  void announce(QAccessibleInterface&, const QString&, bool) override {}
};

/// A recorder of one cell, with the mouse followed in its right half.
class SampleRecorder : public RecorderViewDelegate {
 public:
  SampleRecorder() {
    view.resize(160, 26);
    view.setDelegate(this);
    view.setTrackingArea(Rect{{80, 0}, {80, 26}});
  }
  ~SampleRecorder() override { view.setDelegate(nullptr); }

  bool isEnabled() const override { return true; }
  bool isRecording() const override { return false; }
  std::string accessibilityLabel() const override { return {}; }
  std::string accessibilityHelp() const override { return {}; }
  bool accessibilityPerformPress() override { return false; }
  std::vector<RecorderCell> drawRect() const override { return {cell}; }
  Rect focusRingMaskBounds() const override { return view.bounds(); }
  bool acceptsFirstResponder() const override { return false; }
  bool mouseDown(Point) override { return false; }
  void mouseEntered() override { done += "in "; }
  void mouseExited() override { done += "out "; }
  std::optional<std::string> stringForToolTip(std::size_t) const override { return {}; }
  void boundsDidChange() override {}

  RecorderCell cell{.title = "███", .fontSize = 11, .frame = {{0, 0}, {160, 26}}};
  std::string done;
  FakeKeyboardLayout layout;
  SilentAnnouncer announcer;
  QtRecorderView view{{layout, announcer}};
};

TEST(RecorderView, IsReadableInEveryStyle) {
  SampleRecorder sample;
  for (const QPalette& palette : {QPalette(), darkTheme()}) {
    sample.view.setPalette(palette);
    for (int style = 0; style < 4; ++style) {
      for (const bool isOn : {false, true}) {
        sample.cell.style = static_cast<RecorderStyle>(style);
        sample.cell.isOn = isOn;
        QImage picture(320, 52, QImage::Format_RGB32);
        picture.setDevicePixelRatio(2);
        sample.view.render(&picture);
        // The theme's own colour of selections leaves no more than this.
        EXPECT_GE(contrast(picture.pixelColor(160, 26), picture.pixelColor(60, 26)), 3.5)
            << "style " << style << (isOn ? ", on" : "");
      }
    }
  }
}

TEST(RecorderView, HasItsHintAtTheRightInEveryLanguage) {
  SampleRecorder sample;
  sample.view.setLayoutDirection(Qt::RightToLeft);
  sample.cell.alignment = RecorderCell::Alignment::right;
  const QImage picture = sample.view.grab().toImage();
  EXPECT_GE(contrast(picture.pixelColor(150, 13), picture.pixelColor(20, 13)), 3.5);
}

TEST(RecorderView, FollowsTheMouse) {
  SampleRecorder sample;
  sample.done.clear();
  for (const int x : {10, 100, 120, 20, 90}) {
    QMouseEvent move(QEvent::MouseMove, QPointF(x, 5), QPointF(x, 5), {}, {}, {});
    QCoreApplication::sendEvent(&sample.view, &move);
  }
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&sample.view, &leave);
  EXPECT_EQ(sample.done, "in out in out ");
}

TEST(RecorderView, WaitsForTheKeyboardThatAnotherProgramHolds) {
  LogCapture log;
  SampleRecorder sample;
  sample.view.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&sample.view));
  desktop::Keyboard other;
  ASSERT_TRUE(other.takeAll());
  sample.view.setEventMonitor([](const KeyEvent&) { return true; });
  EXPECT_THAT(sample.view.availability().reason, testing::StartsWith("another program holds"));
  EXPECT_EQ(log.lines, std::vector{sample.view.availability().reason});
  other.letGoOfAll();
  EXPECT_TRUE(QTest::qWaitFor([&] { return sample.view.availability().isAvailable; }));
  EXPECT_FALSE(other.canTakeAll());
  sample.view.setEventMonitor({});
  EXPECT_TRUE(other.canTakeAll());
}

}  // namespace
}  // namespace qf
