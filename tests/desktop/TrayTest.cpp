// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QImage>
#include <QTemporaryDir>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/Home.h"

namespace qf::desktop {
namespace {

constexpr int panelHeight = 28;

void configureXfcePanel(bool isDark) {
  put(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml",
      R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>)");
  output("xfconf-query", {"-c", "xfce4-panel", "-p", "/panels/dark-mode", "-n", "-t", "bool", "-s",
                          isDark ? "true" : "false"});
}

void configureLxqtPanel(bool) {
  put(".config/lxqt/panel.conf",
      "panels=panel1\n[panel1]\nplugins=statusnotifier\nposition=Top\npanelSize=28\n"
      "[statusnotifier]\ntype=statusnotifier\n");
}

/// A panel along the top of the screen.
struct PanelKind {
  const char* program;
  void (*configure)(bool isDark);
  bool isDark;
};

class TrayTest : public testing::TestWithParam<PanelKind> {
 protected:
  QImage strip() const {
    const QString file = _folder.filePath("screen.png");
    screenshot(file);
    const QImage screen(file);
    return screen.copy(0, 0, screen.width(), panelHeight);
  }

  bool isOfIcon(const QColor& color) const {
    return GetParam().isDark ? color.lightness() > 180 : color.lightness() < 90;
  }

  /// Empty where there is none. On a light panel an icon with a rim has light within its strokes.
  QRect icon() const {
    const QImage seen = strip();
    QRect place;
    for (int y = 0; y < seen.height(); ++y) {
      for (int x = 0; x < seen.width(); ++x) {
        if (isOfIcon(seen.pixelColor(x, y))) place |= QRect(x, y, 1, 1);
      }
    }
    const bool isSolid = isOfIcon(seen.pixelColor(place.left() + 1, place.center().y()));
    return isSolid && place.width() <= panelHeight ? place : QRect();
  }

  QTemporaryDir _folder;
};

std::optional<Accessible> showing(const Program& agent, const QString& name) {
  return Accessible::showing(agent.processIdentifier(), name);
}

TEST_P(TrayTest, ShowsTheIconAndTheMenuWheneverThePanelIsThere) {
  GetParam().configure(GetParam().isDark);
  Program agent(Agent::builtProgram("quenfold-menu"), {});
  ASSERT_TRUE(until([&] { return agent.printed().contains("no tray on this desktop"); }));
  QProcessEnvironment withThemeOfItsOwn = QProcessEnvironment::systemEnvironment();
  withThemeOfItsOwn.remove("GTK_THEME");
  for (int round = 0; round < 2; ++round) {
    Program panel(GetParam().program, {}, withThemeOfItsOwn);
    ASSERT_TRUE(until([&] { return !icon().isEmpty(); }, 20s))
        << "round " << round << panel.printed().toStdString();
    keyboard::hold("shift");
    mouse::click(icon().center());
    EXPECT_TRUE(until([&] { return showing(agent, "Leave Results on Clipboard").has_value(); }));
    keyboard::release("shift");
    EXPECT_TRUE(showing(agent, "Quit"));
    if (const QString folder = qEnvironmentVariable("QF_PICTURES"); !folder.isEmpty()) {
      screenshot(folder + '/' + GetParam().program + ".png");
    }
    keyboard::press("Escape");
    EXPECT_TRUE(until([&] { return !showing(agent, "Quit"); }));
  }
}

INSTANTIATE_TEST_SUITE_P(, TrayTest,
                         testing::Values(PanelKind{"xfce4-panel", configureXfcePanel, false},
                                         PanelKind{"xfce4-panel", configureXfcePanel, true},
                                         PanelKind{"lxqt-panel", configureLxqtPanel, true}),
                         [](const auto& test) {
                           return std::string(test.param.program, 4) +
                                  (test.param.isDark ? "Dark" : "Light");
                         });

TEST(WithoutATray, ASecondStartShowsThePalette) {
  const Program agent(Agent::builtProgram("quenfold-menu"), {});
  ASSERT_TRUE(
      until([&] { return Accessible::application(agent.processIdentifier()).has_value(); }));
  Program second(Agent::builtProgram("quenfold-menu"), {});
  EXPECT_TRUE(until([&] { return !second.isRunning(); }));
  EXPECT_TRUE(until([&] { return showing(agent, "Search cleaners").has_value(); }));
}

TEST(WithoutATray, ThePaletteStandsInAfterAWhile) {
  const Program agent(Agent::builtProgram("quenfold-menu"), {});
  EXPECT_TRUE(until([&] { return showing(agent, "Search cleaners").has_value(); }, 30s));
}

}  // namespace
}  // namespace qf::desktop
