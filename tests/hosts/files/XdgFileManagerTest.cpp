// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "hosts/linux/files/XdgFileManager.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

class XdgFileManagerTest : public testing::Test {
 protected:
  TemporaryHome home;
  XdgFileManager files;

  auto container() {
    return files.containerURLForSecurityApplicationGroupIdentifier("group.org.example");
  }
};

TEST_F(XdgFileManagerTest, sharesAContainerInTheUsersDataFolder) {
  EXPECT_EQ(container(), home / ".local/share/group.org.example");
  setenv("XDG_DATA_HOME", "relative/counts/for/nothing", 1);
  EXPECT_EQ(container(), home / ".local/share/group.org.example");
  setenv("XDG_DATA_HOME", "/elsewhere", 1);
  EXPECT_EQ(container(), "/elsewhere/group.org.example");
  unsetenv("XDG_DATA_HOME");
  unsetenv("HOME");
  EXPECT_EQ(container(), std::nullopt);
}

TEST_F(XdgFileManagerTest, makesFoldersAndFilesForTheirOwnerAlone) {
  const auto folder = home / "a/b/c";
  EXPECT_EQ(files.createDirectory(folder / ""), std::nullopt);
  EXPECT_EQ(files.createDirectory(folder), std::nullopt);
  EXPECT_EQ(TemporaryHome::permissions(home / "a"), 0700u);
  EXPECT_EQ(files.write(folder / "f", Data{'o', 'n', 'e'}), std::nullopt);
  EXPECT_EQ(TemporaryHome::permissions(folder / "f"), 0600u);

  // Who reads while it is replaced has the old contents, not a part of either.
  std::filesystem::permissions(folder / "f", std::filesystem::perms(0640));
  std::ifstream reader(folder / "f");
  EXPECT_EQ(files.write(folder / "f", Data{'2'}), std::nullopt);
  EXPECT_EQ(files.contents(folder / "f"), Data{'2'});
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "one");
  EXPECT_EQ(TemporaryHome::permissions(folder / "f"), 0640u);
}

TEST_F(XdgFileManagerTest, saysWhatFailed) {
  TemporaryHome::write(home / "file", "");
  const auto noFolder = files.createDirectory(home / "file/below");
  ASSERT_TRUE(noFolder);
  EXPECT_NE(noFolder->localizedDescription.find("file/below: Not a directory"), std::string::npos);
  EXPECT_TRUE(files.createDirectory(home / "file"));
  EXPECT_TRUE(files.write(home / "missing/f", Data{}));
}

TEST_F(XdgFileManagerTest, keepsTheOldContentsOnAFullDisk) {
  TemporaryHome::write(home / "file", "before");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{8, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  EXPECT_TRUE(files.write(home / "file", Data(100, 'x')));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(TemporaryHome::text(home / "file"), "before");
}

TEST_F(XdgFileManagerTest, readsRegularFilesOnlyAndWaitsForNone) {
  EXPECT_EQ(files.contents(home / "missing"), std::nullopt);
  EXPECT_EQ(files.contents(home.path()), std::nullopt);
  ASSERT_EQ(mkfifo((home / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(files.contents(home / "pipe"), std::nullopt);
  EXPECT_TRUE(files.write(home / "pipe", Data{'x'}));
  TemporaryHome::write(home / "empty", "");
  EXPECT_EQ(files.contents(home / "empty"), Data());
  TemporaryHome::write(home / "huge", "");
  std::filesystem::resize_file(home / "huge", (256u << 20) + 1);
  EXPECT_EQ(files.contents(home / "huge"), std::nullopt);
}

}  // namespace
}  // namespace qf
