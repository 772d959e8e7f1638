// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/QFFileCleaner.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class FileCleaner : public testing::Test {
 protected:
  std::string cleaned(std::string_view contents, std::string_view encoding = {}) {
    const fs::path file = TemporaryHome::write(home / "text", contents);
    const auto error = cleaner.clean(file, "#UPPERCASE", encoding);
    EXPECT_FALSE(error) << (error ? error->localizedDescription : "");
    return TemporaryHome::text(file);
  }

  TemporaryHome home;
  XdgFileManager fileManager;
  QFCleanerLibrary library;
  QFFileCleaner cleaner{fileManager, library};
};

TEST_F(FileCleaner, keepsEncodingAndMark) {
  EXPECT_EQ(cleaned("é\r\n"), "É\r\n");
  EXPECT_EQ(cleaned("\xEF\xBB\xBFx"), "\xEF\xBB\xBFX");
  EXPECT_EQ(cleaned("\xFF\xFE\xE9\x00x\x00"s), "\xFF\xFE\xC9\x00X\x00"s);
  EXPECT_EQ(cleaned("\xFE\xFF\x00\xE9"s), "\xFE\xFF\x00\xC9"s);
  EXPECT_EQ(cleaned("\xE9", "ISO-8859-1"), "\xC9");
  EXPECT_EQ(cleaned(""), "");
}

TEST_F(FileCleaner, leavesWhatIsNoTextAsItIs) {
  for (const std::string& contents :
       {"\xFF\xD8\xFF\xE0 picture"s, "nul\0nul"s, "\xFF\xFE\x41"s, "\xFF\xFE\x00\xD8\x41\x00"s}) {
    const fs::path file = TemporaryHome::write(home / "data", contents);
    EXPECT_TRUE(cleaner.clean(file, "#UPPERCASE"));
    EXPECT_EQ(TemporaryHome::text(file), contents);
  }
  const fs::path latin = TemporaryHome::write(home / "latin", "\xFF");
  EXPECT_TRUE(cleaner.clean(latin, "#UPPERCASE", "ISO-8859-1"));  // its capital is not in there
  EXPECT_TRUE(cleaner.clean(latin, "#UPPERCASE", "no-such-encoding"));
  EXPECT_EQ(TemporaryHome::text(latin), "\xFF");
  EXPECT_TRUE(cleaner.clean(home / "missing", "#UPPERCASE"));
  EXPECT_TRUE(cleaner.clean(home.path(), "#UPPERCASE"));
  EXPECT_TRUE(cleaner.clean(TemporaryHome::write(home / "text", "a"), "#NO-SUCH-CLEANER"));
}

TEST_F(FileCleaner, keepsPermissionsAndLinks) {
  const fs::path file = TemporaryHome::write(home / "script", "echo");
  fs::permissions(file, fs::perms(0750));
  const fs::path link = home / "link";
  fs::create_symlink("script", link);
  EXPECT_FALSE(cleaner.clean(link, "#UPPERCASE"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(TemporaryHome::text(file), "ECHO");
  EXPECT_EQ(TemporaryHome::permissions(file), 0750u);
}

TEST_F(FileCleaner, replacesWithoutLeavingTraces) {
  cleaned("abc");
  EXPECT_EQ(std::distance(fs::directory_iterator(home.path()), {}), 1);
  const fs::path same = TemporaryHome::write(home / "same", "ABC");
  fs::last_write_time(same, fs::file_time_type::min() + std::chrono::hours(1));
  const auto before = fs::last_write_time(same);
  EXPECT_FALSE(cleaner.clean(same, "#UPPERCASE"));
  EXPECT_EQ(fs::last_write_time(same), before);
}

}  // namespace
}  // namespace qf
