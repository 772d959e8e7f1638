// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "hosts/linux/desktop/DesktopEntries.h"
#include "hosts/linux/desktop/DesktopEntry.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> commandLine(std::string_view exec) {
  const auto entry = DesktopEntry::parse(
      "[Desktop Entry]\nType=Application\nExec=" + std::string(exec) + "\n", "x.desktop");
  return entry ? entry->commandLine() : std::vector<std::string>{"no entry"};
}

TEST(DesktopEntry, CutsTheExecLine) {
  EXPECT_THAT(commandLine("mousepad %U"), ElementsAre("mousepad"));
  EXPECT_THAT(commandLine("a  --b=%f %% 50%% x%cy"), ElementsAre("a", "--b=", "%", "50%", "xy"));
  EXPECT_THAT(commandLine(R"("/opt/My App/run" "" "say \\"hi\\"" a"b c"d)"),
              ElementsAre("/opt/My App/run", "", "say \"hi\"", "ab cd"));
  // The file's own escapes come first, those of the quotes second.
  EXPECT_THAT(commandLine(R"(sh -c "echo \\$HOME \\\\ \\x")"),
              ElementsAre("sh", "-c", "echo $HOME \\ \\x"));
  EXPECT_THAT(commandLine("a\\sb"), ElementsAre("a", "b"));
  EXPECT_THAT(commandLine("a \"open"), IsEmpty());
  EXPECT_THAT(commandLine(""), IsEmpty());
  EXPECT_THAT(commandLine("a %"), ElementsAre("a", "%"));
}

TEST(DesktopEntry, ReadsTheMainGroupInTheUsersLanguage) {
  const char* text =
      "# comment\r\n[Desktop Entry]\r\nType = Application\r\nName=Editor\nName[de]=Schreiber\n"
      "Name[de_AT]=Schreibwerk\nExec=first\nExec=second\n[Desktop Action "
      "new]\nName=New\nExec=third\n";
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  EXPECT_EQ(DesktopEntry::parse(text, "/a/org.b.c.desktop")->name, "Schreibwerk");
  setenv("LC_ALL", "de_CH@euro", 1);
  EXPECT_EQ(DesktopEntry::parse(text, "/a/org.b.c.desktop")->name, "Schreiber");
  setenv("LC_ALL", "fr_FR", 1);
  setenv("LANGUAGE", "fr:de_AT", 1);
  EXPECT_EQ(DesktopEntry::parse(text, "/a/org.b.c.desktop")->name, "Schreibwerk");
  unsetenv("LANGUAGE");
  setenv("LC_ALL", "C", 1);
  const auto entry = DesktopEntry::parse(text, "/a/org.b.c.desktop");
  EXPECT_EQ(entry->name, "Editor");
  EXPECT_EQ(entry->exec, "first");
  EXPECT_EQ(entry->identifier, "org.b.c");

  EXPECT_FALSE(DesktopEntry::parse("", "a.desktop"));
  EXPECT_FALSE(DesktopEntry::parse("Type=Application\n", "a.desktop"));
  EXPECT_FALSE(DesktopEntry::parse("[Desktop Entry]\nType=Link\nURL=x\n", "a.desktop"));
}

class Entries : public ::testing::Test {
 protected:
  static void write(const fs::path& file, const std::string& lines) {
    TemporaryHome::write(file, "[Desktop Entry]\nType=Application\n" + lines);
  }
  std::string match(std::string_view windowClass, std::string_view instance,
                    std::string_view process) const {
    const DesktopEntry* entry = entries.matching(windowClass, instance, process);
    return entry ? entry->identifier : "";
  }

  TemporaryHome home;
  fs::path first = home / "first", second = home / "second";
  DesktopEntries entries{{first, second, home / "missing"}};
};

TEST_F(Entries, EarlierFoldersHideLaterOnes) {
  write(second / "org.a.desktop", "Name=A\n");
  write(second / "org.b.desktop", "Name=B\n");
  EXPECT_EQ(entries.pathForIdentifier("org.a"), second / "org.a.desktop");
  write(first / "org.a.desktop", "Name=A\n");
  write(first / "org.b.desktop", "Hidden=true\n");
  EXPECT_EQ(entries.pathForIdentifier("org.a"), first / "org.a.desktop");
  EXPECT_FALSE(entries.pathForIdentifier("org.b"));
  EXPECT_EQ(match("", "", "b"), "");
  EXPECT_FALSE(entries.pathForIdentifier("../second/org.a"));
  EXPECT_FALSE(entries.pathForIdentifier(""));
}

TEST_F(Entries, KnowsAWindowByItsSurestSign) {
  write(first / "a-settings.desktop", "Exec=/usr/bin/writer --settings\n");
  write(first / "org.desk.Pad.desktop", "Exec=writer %U\n");
  write(second / "other.desktop", "StartupWMClass=Odd\nExec=x\n");
  EXPECT_EQ(match("Odd", "pad", "writer"), "other");
  EXPECT_EQ(match("Pad", "pad", "python3"), "org.desk.Pad");
  EXPECT_EQ(match("Unknown", "unknown", "writer"), "org.desk.Pad");
  EXPECT_EQ(match("Unknown", "unknown", "writer2"), "");
  EXPECT_EQ(match("", "", ""), "");
  write(second / "late.desktop", "Exec=late\n");
  fs::last_write_time(second, fs::file_time_type::clock::now());
  EXPECT_EQ(match("", "", "late"), "late");
}

}  // namespace
}  // namespace qf
