// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "engine/QFCleanerLibrary.h"
#include "engine/QFFileCleaner.h"
#include "tests/engine/TemporaryFolder.h"

namespace qf {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class FileCleaner : public testing::Test {
 protected:
  std::string cleaned(std::string_view contents, std::string_view encoding = {}) {
    const fs::path file = folder.put("text", contents);
    const auto error = cleaner.clean(file, "#UPPERCASE", encoding);
    EXPECT_FALSE(error) << (error ? error->localizedDescription : "");
    return TemporaryFolder::read(file);
  }

  TemporaryFolder folder;
  FolderFileManager fileManager{folder.path};
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
    const fs::path file = folder.put("data", contents);
    EXPECT_TRUE(cleaner.clean(file, "#UPPERCASE"));
    EXPECT_EQ(TemporaryFolder::read(file), contents);
  }
  const fs::path latin = folder.put("latin", "\xFF");
  EXPECT_TRUE(cleaner.clean(latin, "#UPPERCASE", "ISO-8859-1"));  // its capital is not in there
  EXPECT_TRUE(cleaner.clean(latin, "#UPPERCASE", "no-such-encoding"));
  EXPECT_EQ(TemporaryFolder::read(latin), "\xFF");
  EXPECT_TRUE(cleaner.clean(folder.path / "missing", "#UPPERCASE"));
  EXPECT_TRUE(cleaner.clean(folder.path, "#UPPERCASE"));
  EXPECT_TRUE(cleaner.clean(folder.put("text", "a"), "#NO-SUCH-CLEANER"));
}

TEST_F(FileCleaner, keepsPermissionsAndLinks) {
  const fs::path file = folder.put("script", "echo");
  chmod(file.c_str(), 0750);
  const fs::path link = folder.path / "link";
  fs::create_symlink("script", link);
  EXPECT_FALSE(cleaner.clean(link, "#UPPERCASE"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(TemporaryFolder::read(file), "ECHO");
  struct stat status {};
  stat(file.c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777, 0750u);
}

TEST_F(FileCleaner, replacesWithoutLeavingTraces) {
  cleaned("abc");
  int entries = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder.path)) ++entries;
  EXPECT_EQ(entries, 1);
  const fs::path same = folder.put("same", "ABC");
  fs::last_write_time(same, fs::file_time_type::min() + std::chrono::hours(1));
  const auto before = fs::last_write_time(same);
  EXPECT_FALSE(cleaner.clean(same, "#UPPERCASE"));
  EXPECT_EQ(fs::last_write_time(same), before);
}

}  // namespace
}  // namespace qf
