// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

class PropertyListUserDefaultsTest : public testing::Test {
 protected:
  static void inAnotherProcess(const std::function<void(UserDefaults&)>& act) {
    const pid_t child = fork();
    if (child == 0) {
      PropertyListUserDefaultsDomains domains("org.example.Program");
      act(domains.standardUserDefaults());
      _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
  }

  TemporaryHome home;
  const std::filesystem::path file = home / ".config/org.example.Program.plist";
  PropertyListUserDefaultsDomains domains{"org.example.Program"};
  UserDefaults& defaults = domains.standardUserDefaults();
  LogCapture log;
};

TEST_F(PropertyListUserDefaultsTest, storesAtOnceInAPrivateXMLFile) {
  defaults.setObject("Library", "SelectedGroup");
  EXPECT_NE(TemporaryHome::text(file).find("<key>SelectedGroup</key>\n\t<string>Library</string>"),
            std::string::npos);
  EXPECT_EQ(TemporaryHome::permissions(file), 0600u);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.parent_path()), {}), 1);
  defaults.setObject(std::nullopt, "SelectedGroup");
  EXPECT_EQ(defaults.objectForKey("SelectedGroup"), std::nullopt);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(PropertyListUserDefaultsTest,
       registeredDefaultsStandBehindWhatIsStoredAndBelongToTheirObject) {
  const auto first = domains.suite("group.org.example");
  const auto second = domains.suite("group.org.example");
  first->registerDefaults({{"a", 1}, {"b", 1}});
  first->registerDefaults({{"b", 2}});
  second->setObject(3, "a");
  EXPECT_EQ(first->objectForKey("a"), Value(3));
  EXPECT_EQ(first->objectForKey("b"), Value(2));
  EXPECT_EQ(second->objectForKey("b"), std::nullopt);
  first->setObject(std::nullopt, "a");
  EXPECT_EQ(first->objectForKey("a"), Value(1));
}

TEST_F(PropertyListUserDefaultsTest, seesAndKeepsWhatOtherProcessesStore) {
  defaults.setObject("ours", "a");
  inAnotherProcess([](UserDefaults& others) { others.setObject("theirs", "b"); });
  EXPECT_EQ(defaults.objectForKey("b"), Value("theirs"));
  inAnotherProcess([](UserDefaults& others) { others.setObject("later", "b"); });
  defaults.setObject("again", "a");
  EXPECT_EQ(defaults.objectForKey("b"), Value("later"));
  // Someone who edits the file, even to the same length.
  auto text = TemporaryHome::text(file);
  text.replace(text.find("later"), 5, "edits");
  TemporaryHome::write(file, text);
  EXPECT_EQ(defaults.objectForKey("b"), Value("edits"));
  std::filesystem::remove(file);
  EXPECT_EQ(defaults.objectForKey("b"), std::nullopt);
}

TEST_F(PropertyListUserDefaultsTest, aValueThatCannotBeStoredHoldsUpNoOther) {
  defaults.setObject("first", "a");
  defaults.setObject("bell\a", "a");
  defaults.setObject("later", "b");
  EXPECT_EQ(defaults.objectForKey("a"), Value("first"));
  EXPECT_NE(TemporaryHome::text(file).find("later"), std::string::npos);
  ASSERT_EQ(log.lines.size(), 1u);
  EXPECT_TRUE(log.lines[0].starts_with("The setting a cannot be stored: ")) << log.lines[0];
}

TEST_F(PropertyListUserDefaultsTest, writesThroughALinkToTheFileBehindIt) {
  TemporaryHome::write(home / "dotfiles/real.plist", "<plist><dict/></plist>");
  std::filesystem::create_directories(file.parent_path());
  std::filesystem::create_symlink(home / "dotfiles/real.plist", file);
  defaults.setObject(true, "a");
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_NE(TemporaryHome::text(home / "dotfiles/real.plist").find("<true/>"), std::string::npos);
}

TEST_F(PropertyListUserDefaultsTest, aDamagedFileReadsAsEmptyAndIsKeptAside) {
  TemporaryHome::write(file, "<plist><dict><key>a</key>");
  EXPECT_EQ(defaults.objectForKey("a"), std::nullopt);
  EXPECT_EQ(defaults.objectForKey("a"), std::nullopt);
  ASSERT_EQ(log.lines.size(), 1u);
  EXPECT_TRUE(log.lines[0].starts_with("Error reading " + file.string() + " : ")) << log.lines[0];
  defaults.setObject(1, "b");
  EXPECT_EQ(TemporaryHome::text(file.string() + ".damaged"), "<plist><dict><key>a</key>");
  EXPECT_EQ(defaults.objectForKey("b"), Value(1));
  TemporaryHome::write(file, "<plist><array/></plist>");
  EXPECT_EQ(defaults.objectForKey("b"), std::nullopt);
  defaults.setObject(2, "b");
  EXPECT_EQ(TemporaryHome::text(file.string() + ".damaged"), "<plist><dict><key>a</key>");
  EXPECT_EQ(TemporaryHome::text(file.string() + ".damaged-2"), "<plist><array/></plist>");
}

TEST_F(PropertyListUserDefaultsTest, aStoreThatFailsIsLoggedRememberedAndTriedAgainWithTheNext) {
  TemporaryHome::write(home / ".config", "no folder");
  defaults.setObject(1, "a");
  EXPECT_EQ(log.lines.size(), 1u);
  EXPECT_EQ(defaults.objectForKey("a"), Value(1));
  std::filesystem::remove(home / ".config");
  defaults.setObject(2, "b");
  inAnotherProcess([](UserDefaults& others) {
    if (others.objectForKey("a") != Value(1)) _exit(1);
  });
}

}  // namespace
}  // namespace qf
