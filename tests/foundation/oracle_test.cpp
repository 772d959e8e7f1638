// SPDX-License-Identifier: Apache-2.0
// Other implementations read what we write, and the reverse: Python's plistlib, a reader of keyed
// archives in oracle.py, and libplist where it is installed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "foundation/KeyedArchive.h"
#include "tests/foundation/Samples.h"
#ifdef QF_HAS_LIBPLIST
#include <plist/plist.h>
#endif

namespace qf {
namespace {

using test::Samples;

std::string hex(std::string_view text) {
  std::string result;
  char digits[3];
  for (const char c : text) {
    std::snprintf(digits, sizeof digits, "%02x", static_cast<std::uint8_t>(c));
    result += digits;
  }
  return result;
}

std::string bitsOf(double number) {
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(number)));
  return digits;
}

template <class Parts>
std::string joined(const Parts& parts) {
  std::string result;
  for (const auto& part : parts) result += (result.empty() ? "" : ",") + part;
  return result;
}

// The form of oracle.py.
std::string dump(const Value& value) {
  if (value.boolean()) return *value.boolean() ? "b1" : "b0";
  if (value.integer()) return "i" + value.description();
  if (value.real()) return "r" + bitsOf(*value.real());
  if (value.date()) return "d" + bitsOf(value.date()->secondsSinceReferenceDate);
  if (value.string()) return "s" + hex(*value.string());
  if (value.data()) return "x" + hex(std::string(value.data()->begin(), value.data()->end()));
  std::vector<std::string> parts;
  if (value.array()) {
    for (const Value& item : *value.array()) parts.push_back(dump(item));
    return "[" + joined(parts) + "]";
  }
  for (const auto& [key, item] : *value.dictionary()) {
    parts.push_back("s" + hex(key) + ":" + dump(item));
  }
  std::sort(parts.begin(), parts.end());
  return "{" + joined(parts) + "}";
}

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
