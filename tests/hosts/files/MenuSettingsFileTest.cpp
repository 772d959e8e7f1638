// SPDX-License-Identifier: Apache-2.0
// The menu settings in a real file, in every condition that it can be in.
#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

#include "hosts/linux/files/XdgFileManager.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "tests/hosts/files/TemporaryHome.h"
#include "tests/support/FakeDistributedNotificationCenter.h"
#include "tests/support/FakeUserDefaults.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// While it lives, no file of this process grows beyond so many bytes: as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &_before);
    const rlimit full{bytes, _before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &_before); }

 private:
  rlimit _before{};
};

class MenuSettingsFile : public testing::Test {
 protected:
  QFKMenuSettingsManager newManager() { return {container, files, notifications}; }

  TemporaryHome home;
  XdgFileManager files;
  FakeUserDefaultsDomains defaults;
  QFKSharedContainer container{files, defaults};
  FakeDistributedNotificationCenter notifications;
  LogCapture log;
  const std::filesystem::path file =
      home / ".local/share/group.org.quenfold/Data/quenfold-menu.plist";
  QFKMenuSettingsManager manager = newManager();
};

TEST_F(MenuSettingsFile, IsReadAsDefaultsWhereItCannotBeRead) {
  const struct {
    const char* what;
    std::function<void()> make;
    bool isLogged;
  } conditions[] = {
      {"missing", [] {}, false},
      {"empty", [this] { TemporaryHome::write(file, ""); }, true},
      {"corrupt", [this] { TemporaryHome::write(file, "bplist00\xff\xff"); }, true},
      {"huge",
       [this] {
         TemporaryHome::write(file, "");
         std::filesystem::resize_file(file, (256u << 20) + 1);
       },
       false},
      {"a folder", [this] { std::filesystem::create_directories(file); }, false},
  };
  for (const auto& [what, make, isLogged] : conditions) {
    std::filesystem::remove_all(file);
    manager.setMenuStyle(1);
    manager.addShortcut();
    std::filesystem::remove_all(file);
    make();
    log.lines.clear();
    manager.readSettings();
    EXPECT_EQ(manager.menuStyle(), 0) << what;
    EXPECT_THAT(manager.shortcutIDList(), IsEmpty()) << what;
    if (isLogged) {
      EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error reading file://"))) << what;
    } else {
      EXPECT_THAT(log.lines, IsEmpty()) << what;
    }
  }
}

TEST_F(MenuSettingsFile, KeepsItsContentsOnAFullDisk) {
  std::signal(SIGXFSZ, SIG_IGN);
  manager.setMenuIconID(3);
  const std::string before = TemporaryHome::text(file);
  notifications.posted.clear();
  {
    const FullDisk disk(8);
    manager.setMenuStyle(1);
    EXPECT_EQ(manager.menuStyle(), 1);
  }
  EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error writing qfmenu.plist : ")));
  EXPECT_EQ(TemporaryHome::text(file), before);
  EXPECT_THAT(notifications.posted, IsEmpty());

  manager.setMenuIconID(4);  // the next change is written with the one before it
  QFKMenuSettingsManager other = newManager();
  other.readSettings();
  EXPECT_EQ(other.menuIconID(), 4);
  EXPECT_EQ(other.menuStyle(), 1);
  EXPECT_EQ(notifications.posted.size(), 1u);
}

TEST_F(MenuSettingsFile, IsTriedAgainWhereItCannotBeWritten) {
  std::filesystem::create_directories(file / "in the way");
  manager.setMenuStyle(1);
  EXPECT_THAT(log.lines, ElementsAre(HasSubstr("quenfold-menu.plist")));
  std::filesystem::remove_all(file);
  manager.setMenuStyle(1);
  QFKMenuSettingsManager other = newManager();
  other.readSettings();
  EXPECT_EQ(other.menuStyle(), 1);
}

}  // namespace
}  // namespace qf
