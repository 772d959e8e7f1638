// SPDX-License-Identifier: Apache-2.0
// The real window in other languages, directions, colours and scales.
#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QImage>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

QProcessEnvironment with(const QString& variable, const QString& value) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(variable, value);
  return environment;
}

TEST(Appearance, GermanSpeaksGerman) {
  const EngineProgram engine({}, with("LANG", "de_DE.UTF-8"));
  for (const QString page : {"Bereinigungen", "Gruppen", "Status", "Menü"}) engine.showPage(page);
  EXPECT_TRUE(engine.has("check box", "Das Menü nach der Anmeldung im Panel zeigen"));
  engine.showPage("Bereinigungen");
  engine.type("Bereinigungen suchen", "base64 dekodieren");
  engine.type("Probetext", "!");
  EXPECT_TRUE(until([&] { return engine.hasText("er ist kein Base64"); })) << "reasons as well";
}

TEST(Appearance, ArabicRunsFromRightToLeft) {
  const auto sideOfPages = [](const EngineProgram& engine, const QString& list) {
    return engine.node("list", list).screenExtents().center().x();
  };
  const int left = sideOfPages(EngineProgram(), "Pages");
  const EngineProgram arabic({}, with("LANG", "ar_EG.UTF-8"));
  EXPECT_GT(sideOfPages(arabic, "الصفحات"), left);
}

TEST(Appearance, AtTwiceTheSizeEveryPageFitsTheScreen) {
  const EngineProgram engine({}, with("QT_SCALE_FACTOR", "2"));
  for (const QString page : {"Cleaners", "Groups", "Status", "Menu"}) engine.showPage(page);
  const QString geometry = output("xdotool", {"getwindowgeometry", "--shell", engine.window()});
  const auto value = [&](const QString& key) {
    return geometry.section(key + '=', 1).section('\n', 0, 0).toInt();
  };
  EXPECT_LE(value("WIDTH"), 1280);
  EXPECT_LE(value("HEIGHT"), 800);
}

/// The desktop's settings, as the portal tells of them.
class Portal : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  Portal() {
    bus.registerObject("/org/freedesktop/portal/desktop", this, QDBusConnection::ExportAllContents);
    bus.registerService("org.freedesktop.portal.Desktop");
  }
  ~Portal() override {
    bus.unregisterService("org.freedesktop.portal.Desktop");
    bus.unregisterObject("/org/freedesktop/portal/desktop");
  }
  void set(uint scheme) {
    emit SettingChanged("org.freedesktop.appearance", "color-scheme", QDBusVariant(scheme));
  }

 public slots:
  QDBusVariant Read(const QString&, const QString&) {
    return QDBusVariant(QVariant::fromValue(QDBusVariant(1U)));
  }

 signals:
  void SettingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  QDBusConnection bus = QDBusConnection::sessionBus();
};

TEST(Appearance, FollowsTheDesktopIntoTheDarkAndBack) {
  Portal portal;
  const EngineProgram engine;
  const auto becomes = [&](bool isDark) {
    const QRect box =
        engine.node("check box", "Takes the keyboard when it appears").screenExtents();
    return until([&] {
      screenshot(home("window.png"));
      const QColor background = QImage(home("window.png")).pixelColor(box.topRight());
      return (background.lightness() < 100) == isDark;
    });
  };
  EXPECT_TRUE(becomes(true));
  portal.set(2);
  EXPECT_TRUE(becomes(false));
}

TEST(Appearance, TheAgentFollowsTheDesktopToo) {
  Portal portal;
  Agent agent;
  for (const bool isDark : {true, false}) {
    portal.set(isDark ? 1 : 2);
    EXPECT_TRUE(until([&] {
      agent.openMenu();
      screenshot(home("menu.png"));
      const QPoint place = agent.menuEntry("Quit").screenExtents().center();
      keyboard::press("Escape");
      EXPECT_TRUE(until([&] { return !agent.shows("Quit"); }));
      return (QImage(home("menu.png")).pixelColor(place).lightness() < 100) == isDark;
    }));
  }
}

}  // namespace
}  // namespace qf::desktop

#include "AppearanceTest.moc"
