// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QApplication>
#include <QDBusConnection>
#include <QScreen>
#include <QSystemTrayIcon>
#include <QTest>
#include <QThread>

#include "hosts/linux/desktop/DesktopTraySystem.h"
#include "hosts/qt/AddedModifiers.h"
#include "hosts/qt/QtEventState.h"
#include "hosts/qt/QtStatusBar.h"
#include "hosts/qt/TemplateIcon.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/qt/SampleMenu.h"

namespace qf {
namespace {

using testing::ElementsAre;

const QColor darkShape(0x2e, 0x34, 0x36);
const QColor lightShape(0xf2, 0xf2, 0xf2);

/// A tray at the top right, of a light or a dark colour.
class Tray {
 public:
  explicit Tray(const QString& tint = "0xeeeeee")
      : _program("trayer",
                 {"--edge", "top", "--align", "right", "--widthtype", "request", "--height", "28",
                  "--transparent", "true", "--alpha", "0", "--tint", tint}) {}

 private:
  desktop::Program _program;
};

Image icon(bool isTemplate = true) {
  return {"qfmenu-icon05", QF_ICONS "/qfmenu-icon05.svg", isTemplate};
}

/// The window that the tray shows for us, in global coordinates; empty for none.
QRect shownIcon() {
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->inherits("QSystemTrayIconSys") && widget->isVisible()) {
      return {widget->mapToGlobal(QPoint()),
              widget->size()};  // nobody tells it that the tray moved
    }
  }
  return {};
}

QImage seenIcon() {
  const QRect place = shownIcon();
  return QGuiApplication::primaryScreen()
      ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
      .toImage();
}

bool shows(const QImage& image, const QColor& color) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == color) return true;
    }
  }
  return false;
}

/// Until the tray has put the icon in its place and it is drawn there.
bool waitForIcon() {
  return QTest::qWaitFor([] {
    const QImage seen = seenIcon();
    return shows(seen, darkShape) || shows(seen, lightShape);
  });
}

TEST(StatusItem, StandsOutFromEachTrayThatComes) {
  DesktopTraySystem traySystem(QDBusConnection::sessionBus());
  QtStatusBar bar(traySystem);
  const auto item = bar.statusItemWithLength(StatusBar::variableLength);
  item->button().setImage(icon());
  EXPECT_FALSE(bar.availability().isAvailable);
  EXPECT_EQ(bar.availability().reason,
            "no tray on this desktop for the icon; use the palette, or add a tray to a panel");
  for (const auto& [tint, expected, other] : {std::tuple("0xeeeeee", darkShape, lightShape),
                                              std::tuple("0x202020", lightShape, darkShape)}) {
    {
      const Tray tray(tint);
      ASSERT_TRUE(waitForIcon());
      EXPECT_TRUE(bar.availability().isAvailable);
      EXPECT_TRUE(QTest::qWaitFor([expected = expected, other = other] {
        const QImage seen = seenIcon();
        return shows(seen, expected) && !shows(seen, other);
      })) << tint;
    }
    EXPECT_TRUE(QTest::qWaitFor([] { return shownIcon().isEmpty(); }));
  }
}

/// Takes icons over the bus, but shows them only where a panel has registered with it.
class Watcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

 public:
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "watcher");
  bool hasHost = false;

  Watcher() {
    bus.registerObject("/StatusNotifierWatcher", this,
                       QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals);
    bus.registerService("org.kde.StatusNotifierWatcher");
  }
  ~Watcher() override {
    bus.unregisterService("org.kde.StatusNotifierWatcher");
    QDBusConnection::disconnectFromBus("watcher");
  }

 signals:
  void StatusNotifierHostRegistered();
};

TEST(StatusItem, WaitsForThePanelBehindAWatcher) {
  DesktopTraySystem traySystem(QDBusConnection::sessionBus());
  int trays = 0;
  traySystem.setTrayHandler([&trays] { ++trays; });
  QThread thread;  // the questions are asked with this thread waiting
  thread.start();
  auto* watcher = new Watcher;
  watcher->moveToThread(&thread);
  QTest::qWait(200);
  EXPECT_FALSE(traySystem.hasTray());
  EXPECT_EQ(trays, 0);
  const auto registerHost = [watcher] {
    watcher->hasHost = true;
    emit watcher->StatusNotifierHostRegistered();
  };
  QMetaObject::invokeMethod(watcher, registerHost, Qt::BlockingQueuedConnection);
  EXPECT_TRUE(QTest::qWaitFor([&trays] { return trays == 1; }));
  EXPECT_TRUE(traySystem.hasTray());
  QObject::connect(&thread, &QThread::finished, watcher, &QObject::deleteLater);
  thread.quit();
  thread.wait();
}

TEST(StatusItem, EitherButtonOpensTheMenuWithTheKeysHeldThen) {
  const AddedModifiers none;
  const QtEventState eventState(none);
  std::vector<std::uint64_t> flags;
  SampleMenu model([&](SampleMenu& sample) {
    flags.push_back(eventState.modifierFlags());
    sample.add("Quit");
  });
  const Tray tray;
  DesktopTraySystem traySystem(QDBusConnection::sessionBus());
  QtStatusBar bar(traySystem);
  const auto item = bar.statusItemWithLength(StatusBar::variableLength);
  item->setImage(icon());
  item->setMenu(model.menu.get());
  ASSERT_TRUE(waitForIcon());

  const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
  const auto click = [](int button) { desktop::mouse::click(shownIcon().center(), button); };
  for (const auto& [key, button] : {std::pair("", 1), std::pair("shift", 3), std::pair("alt", 1),
                                    std::pair("ctrl", 1), std::pair("super", 3)}) {
    if (*key) desktop::keyboard::hold(key);
    click(button);
    EXPECT_TRUE(QTest::qWaitFor(isOpen)) << key;
    if (*key) desktop::keyboard::release(key);
    QTest::qWait(50);
    EXPECT_TRUE(isOpen()) << key << " let go";
    click(button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(); })) << "a second click closes";
    QTest::qWait(50);
    EXPECT_FALSE(isOpen()) << "and does not open again";
  }
  EXPECT_THAT(flags, ElementsAre(0, modifier::shift, modifier::option, modifier::control,
                                 modifier::command));

  item->button().setEnabled(false);
  click(1);
  QTest::qWait(50);
  EXPECT_FALSE(isOpen());
}

TEST(StatusItem, IconsAreSharpAtEveryScaleAndAnImageThatIsMissingIsEmpty) {
  const IconTint onLight{IconTint::Panel::light};
  for (const int size : {22, 44, 64}) {
    const QImage drawn = iconForImage(icon(), onLight).pixmap(size, size).toImage();
    ASSERT_EQ(drawn.size(), QSize(size, size));
    int opaque = 0;
    int edge = 0;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) {
        const int alpha = drawn.pixelColor(x, y).alpha();
        opaque += alpha == 255 ? 1 : 0;
        edge += alpha > 0 && alpha < 255 ? 1 : 0;
      }
    }
    EXPECT_GT(opaque, 0);
    EXPECT_LT(edge, 8 * size) << "a scaled-up picture has soft edges";
  }
  const Image missing{"none", "/no/such/icon.svg", true};
  EXPECT_FALSE(shows(iconForImage(missing, onLight).pixmap(22, 22).toImage(), darkShape));
}

TEST(StatusItem, ToolTipNamesTheLatestFailure) {
  DesktopTraySystem traySystem(QDBusConnection::sessionBus());
  QtStatusBar bar(traySystem);
  EXPECT_EQ(bar.toolTip(), "Quenfold");
  bar.setNotice("the engine does not answer");
  EXPECT_EQ(bar.toolTip(), "Quenfold\nthe engine does not answer");
}

}  // namespace
}  // namespace qf

#include "StatusItemTests.moc"
