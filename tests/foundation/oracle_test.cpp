// SPDX-License-Identifier: Apache-2.0
// Other implementations read what we write, and the reverse: Python's plistlib, a reader of keyed
// archives in oracle.py, and libplist where it is installed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <map>

#include "foundation/KeyedArchive.h"
#include "tests/foundation/Dump.h"
#include "tests/foundation/Samples.h"
#ifdef QF_HAS_LIBPLIST
#include <plist/plist.h>
#endif

namespace qf {
namespace {

using test::dump;
using test::Samples;

Value manyEntries() {
  Dictionary entries;
  for (int i = 0; i < 100'000; ++i) entries.set("key " + std::to_string(i), i);
  return entries;
}

class Oracle : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "qf-oracle-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    _folder = name;
  }
  void TearDown() override { std::filesystem::remove_all(_folder); }

  bool python(const std::string& command) {
    const std::string line =
        "/usr/bin/env python3 '" QF_ORACLE "' " + command + " '" + _folder.string() + "' 7";
    return std::system(line.c_str()) == 0;
  }
  static bool hasPython() { return std::system("/usr/bin/env python3 -c 'import plistlib'") == 0; }

  std::filesystem::path _folder;
};

TEST_F(Oracle, PythonReadsWhatWeWrite) {
  if (!hasPython()) GTEST_SKIP() << "no python3";
  Samples samples(1);
  std::map<std::string, std::string> expected;
  const auto write = [&](const std::string& name, const Value& value, const Result<Data>& bytes) {
    ASSERT_TRUE(bytes) << name << ": " << bytes.error().localizedDescription;
    test::save(_folder / name, *bytes);
    expected[name] = dump(value);
  };
  for (int i = 0; i <= 60; ++i) {
    const Value value = i < 60 ? samples.make() : manyEntries();
    const std::string number = std::to_string(i);
    write(number + ".xml", value, writePropertyList(value, PropertyListFormat::xml));
    write(number + ".binary", value, writePropertyList(value, PropertyListFormat::binary));
    write(number + ".archive", value, archiveKeyed(value));
  }
  const Dictionary shortcut{{"KeyCode", -1}, {"ModifierFlags", 0x20000}, {"name", "x"}};
  write("shortcut.archive", shortcut, archiveKeyedObject("MASShortcut", shortcut));
  ASSERT_TRUE(python("dump"));
  for (const auto& [name, dumped] : expected) {
    EXPECT_EQ(test::textOf(_folder / (name + ".dump")), dumped) << name;
  }
}

TEST_F(Oracle, WeReadWhatPythonWrites) {
  if (!hasPython()) GTEST_SKIP() << "no python3";
  ASSERT_TRUE(python("make"));
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(_folder)) {
    if (file.path().extension() == ".dump") continue;
    const auto value = test::read(test::textOf(file.path()));
    ASSERT_TRUE(value) << file.path() << value.error().localizedDescription;
    EXPECT_EQ(dump(*value), test::textOf(file.path().string() + ".dump")) << file.path();
    ++count;
  }
  EXPECT_EQ(count, 122);
}

#ifdef QF_HAS_LIBPLIST
// Ours to libplist's tree, and its other format back to ours. Without carriage returns, which it
// writes bare, so that XML makes line feeds of them.
TEST_F(Oracle, LibplistTurnsEachFormatIntoTheOther) {
  Samples samples(2);
  for (int i = 0; i < 100; ++i) {
    Array strings;
    for (int k = 0; k < 20; ++k) {
      std::string text = samples.string();
      std::erase(text, '\r');
      strings.emplace_back(std::move(text));
    }
    const Value value = Dictionary{{"strings", strings},
                                   {"data", Data{0, 1, 0, 255}},
                                   {"numbers", Array{0, 255, 65536, INT64_MAX, true, false, 0.5}},
                                   {"nested", Dictionary{{"key", Array{}}}}};
    for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
      const Data ours = *writePropertyList(value, format);
      const auto* text = reinterpret_cast<const char*>(ours.data());
      plist_t tree = nullptr;
      char* theirs = nullptr;
      std::uint32_t size = 0;
      if (format == PropertyListFormat::xml) {
        plist_from_xml(text, static_cast<std::uint32_t>(ours.size()), &tree);
        plist_to_bin(tree, &theirs, &size);
      } else {
        plist_from_bin(text, static_cast<std::uint32_t>(ours.size()), &tree);
        plist_to_xml(tree, &theirs, &size);
      }
      const auto again = test::read({theirs, size});
      std::free(theirs);
      plist_free(tree);
      ASSERT_TRUE(again) << again.error().localizedDescription;
      EXPECT_TRUE(dump(*again) == dump(value));
    }
  }
}
#endif

}  // namespace
}  // namespace qf
