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

using testing::Each;
using testing::ElementsAre;
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
  TemporaryHome home;
  XdgFileManager files;
  FakeUserDefaultsDomains defaults;
  QFKSharedContainer container{files, defaults};
  FakeDistributedNotificationCenter notifications;
  LogCapture log;
  const std::filesystem::path file =
      home / ".local/share/group.org.quenfold/Data/quenfold-menu.plist";
  QFKMenuSettingsManager manager{container, files, notifications};
};

TEST_F(MenuSettingsFile, IsReadAsDefaultsWhereItCannotBeRead) {
  const struct {
    const char* what;
    std::function<void()> make;
    std::size_t logLines;
  } conditions[] = {
      {"missing", [] {}, 0},
      {"empty", [this] { TemporaryHome::write(file, ""); }, 1},
      {"corrupt", [this] { TemporaryHome::write(file, "bplist00\xff\xff"); }, 1},
      {"huge",
       [this] {
         TemporaryHome::write(file, "");
         std::filesystem::resize_file(file, (256u << 20) + 1);
       },
       0},
      {"a folder", [this] { std::filesystem::create_directories(file); }, 0},
  };
  for (const auto& [what, make, logLines] : conditions) {
    manager.setMenuStyle(1);
    manager.addShortcut();
    std::filesystem::remove_all(file);
    make();
    log.lines.clear();
    manager.readSettings();
    EXPECT_EQ(manager.menuStyle(), 0) << what;
    EXPECT_TRUE(manager.shortcutIDList().empty()) << what;
    EXPECT_EQ(log.lines.size(), logLines) << what;
    EXPECT_THAT(log.lines, Each(StartsWith("Error reading file://"))) << what;
    std::filesystem::remove_all(file);
  }
}

TEST_F(MenuSettingsFile, KeepsItsContentsOnAFullDisk) {
  std::signal(SIGXFSZ, SIG_IGN);
  manager.setMenuIconID(3);
  const std::string before = TemporaryHome::text(file);
  {
    const FullDisk disk(8);
    manager.setMenuStyle(1);
    EXPECT_EQ(manager.menuStyle(), 1);
  }
  EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error writing qfmenu.plist : ")));
  EXPECT_EQ(TemporaryHome::text(file), before);
  EXPECT_EQ(notifications.posted.size(), 1u);

  manager.setMenuIconID(4);  // the next change is written with the one before it
  QFKMenuSettingsManager other(container, files, notifications);
  other.readSettings();
  EXPECT_EQ(other.menuIconID(), 4);
  EXPECT_EQ(other.menuStyle(), 1);
}

}  // namespace
}  // namespace qf
