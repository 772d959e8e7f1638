// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "hosts/linux/files/XdgBundle.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

class XdgBundleTest : public testing::Test {
 protected:
  XdgBundleTest() {
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) unsetenv(name);
  }

  std::string textIn(const char* variable, const char* locale) {
    setenv(variable, locale, 1);
    return XdgBundle(home.path()).localizedString("Quit");
  }

  TemporaryHome home;
};

TEST_F(XdgBundleTest, findsResourcesAndImages) {
  TemporaryHome::write(home / "list.plist", "");
  TemporaryHome::write(home / "icons/both.svg", "");
  TemporaryHome::write(home / "icons/both.png", "");
  TemporaryHome::write(home / "icons/small.png", "");
  const XdgBundle bundle(home.path());
  EXPECT_EQ(bundle.resource("list", "plist"), home / "list.plist");
  EXPECT_EQ(bundle.resource("none", "plist"), std::nullopt);
  EXPECT_EQ(bundle.imageNamed("both"), (Image{"both", home / "icons/both.svg"}));
  EXPECT_EQ(bundle.imageNamed("small"), (Image{"small", home / "icons/small.png"}));
  EXPECT_EQ(bundle.imageNamed("none"), std::nullopt);
}

TEST_F(XdgBundleTest, speaksTheUsersLanguage) {
  TemporaryHome::write(home / "de.lproj/Localizable.strings", "\"Quit\" = \"Beenden\";\n");
  TemporaryHome::write(home / "pt_BR.lproj/Localizable.strings", "\"Quit\" = \"Sair\";\n");
  EXPECT_EQ(XdgBundle(home.path()).localizedString("Quit"), "Quit");
  EXPECT_EQ(textIn("LANG", "de_AT.UTF-8@euro"), "Beenden");
  EXPECT_EQ(textIn("LC_MESSAGES", "pt_BR.UTF-8"), "Sair");
  EXPECT_EQ(XdgBundle(home.path()).localizedString("not in the table"), "not in the table");
  EXPECT_EQ(textIn("LC_ALL", "C"), "Quit");
  EXPECT_EQ(textIn("LC_ALL", "../de"), "Quit");
  EXPECT_EQ(textIn("LC_ALL", ""), "Sair");
  EXPECT_EQ(textIn("LANGUAGE", "fr:de_CH:pt_BR"), "Beenden");
  EXPECT_EQ(textIn("LANGUAGE", "en_GB:de"), "Quit") << "English is there without a table";
  EXPECT_EQ(textIn("LC_ALL", "C.UTF-8"), "Quit");
}

TEST_F(XdgBundleTest, whatIsInstalledSpeaksGermanAndArabicAndLeavesDataAlone) {
  for (const auto& [locale, quit] : {std::pair("de_DE.UTF-8", "Beenden"), {"ar_EG", "إنهاء"}}) {
    setenv("LANG", locale, 1);
    const XdgBundle bundle;
    EXPECT_EQ(bundle.localizedString("Quit"), quit);
    for (const char* data : {"Library", "Western", "Unicode", "None"}) {
      EXPECT_EQ(bundle.localizedString(data), data);
    }
  }
}

TEST_F(XdgBundleTest, aTableThatCannotBeReadIsLoggedAndLeavesTheKeys) {
  const LogCapture log;
  TemporaryHome::write(home / "de.lproj/Localizable.strings", "\"Quit\" = ");
  EXPECT_EQ(textIn("LANG", "de"), "Quit");
  EXPECT_TRUE(log.lines.at(0).starts_with("Error reading " +
                                          (home / "de.lproj/Localizable.strings").string()));
}

}  // namespace
}  // namespace qf
