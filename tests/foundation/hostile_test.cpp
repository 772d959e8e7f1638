// SPDX-License-Identifier: Apache-2.0
// Small inputs that ask for a lot. Each is read in a process of its own, which may take 100 ms of
// processor time and 64 MiB.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "foundation/KeyedArchive.h"
#include "tests/foundation/Samples.h"

namespace qf {
namespace {

std::string repeated(std::string_view text, int count) {
  std::string result;
  while (count-- > 0) result += text;
  return result;
}

std::string bigEndian(std::uint64_t number, int size) {
  std::string bytes;
  while (size-- > 0) bytes += static_cast<char>(number >> (size * 8));
  return bytes;
}

// With four-byte offsets and two-byte references.
std::string binary(const std::vector<std::string>& objects) {
  std::string bytes = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += bigEndian(bytes.size(), 4);
    bytes += object;
  }
  return bytes + offsets + std::string(6, '\0') + "\4\2" + bigEndian(objects.size(), 8) +
         bigEndian(0, 8) + bigEndian(bytes.size(), 8);
}

std::string sharedReferences() {
  std::vector<std::string> objects;
  for (unsigned i = 1; i < 26; ++i) objects.push_back("\xA2" + repeated(bigEndian(i, 2), 2));
  objects.push_back("\x09");
  return binary(objects);
}

// Thousands of places that refer to one text, in less than 2 kB.
std::string sharedText() {
  std::vector<std::string> objects;
  for (unsigned i = 1; i < 6; ++i) objects.push_back("\xAE" + repeated(bigEndian(i, 2), 14));
  objects.push_back("\x5F\x11" + bigEndian(1500, 2) + std::string(1500, 'x'));
  return binary(objects);
}

// As an offset table with one byte for each.
std::string unusedObjects() {
  const std::size_t count = 16'000'002;
  return "bplist00\x09" + std::string(count, '\x08') + std::string(6, '\0') + "\1\1" +
         bigEndian(count, 8) + bigEndian(0, 8) + bigEndian(9, 8);
}

// Many dictionaries of one key that is long.
std::string sharedKey() {
  std::vector<std::string> objects{"\xAF\x11" + bigEndian(30000, 2)};
  for (unsigned i = 0; i < 30000; ++i) objects[0] += bigEndian(i + 2, 2);
  objects.push_back("\x5F\x12" + bigEndian(100'000, 4) + std::string(100'000, 'k'));
  for (int i = 0; i < 30000; ++i) objects.push_back("\xD1" + bigEndian(1, 2) + bigEndian(1, 2));
  return binary(objects);
}

// Objects that are all the same bytes of the file.
std::string overlappingObjects() {
  const unsigned count = 60'000;
  std::string bytes = "bplist00\xAF\x11" + bigEndian(count, 2);
  for (unsigned i = 0; i < count; ++i) bytes += bigEndian(i + 1, 2);
  const std::size_t data = bytes.size();
  bytes += "\x4F\x12" + bigEndian(100'000, 4) + std::string(100'000, 'x');
  const std::size_t table = bytes.size();
  bytes += bigEndian(8, 4) + repeated(bigEndian(data, 4), count);
  return bytes + std::string(6, '\0') + "\4\2" + bigEndian(count + 1, 8) + bigEndian(0, 8) +
         bigEndian(table, 8);
}

std::string deepBinary() {
  std::vector<std::string> objects;
  for (unsigned i = 1; i < 60'000; ++i) objects.push_back("\xA1" + bigEndian(i, 2));
  objects.push_back("\x09");
  return binary(objects);
}

std::string archive(const Array& objects) {
  const Value content = Dictionary{{"$version", 100000},
                                   {"$archiver", "NSKeyedArchiver"},
                                   {"$top", Dictionary{{"root", UID{2}}}},
                                   {"$objects", objects}};
  const Data bytes = *writePropertyList(content, PropertyListFormat::binary);
  return std::string(bytes.begin(), bytes.end());
}

Value arrayRecord(const Array& references) {
  return Dictionary{{"$class", UID{1}}, {"NS.objects", references}};
}

std::string bombArchive(std::uint64_t levels, std::size_t width, bool isCyclic) {
  Array objects{"$null",
                Dictionary{{"$classname", "NSArray"}, {"$classes", Array{"NSArray", "NSObject"}}}};
  for (std::uint64_t i = 0; i < levels; ++i) {
    const std::uint64_t next = isCyclic && i + 1 == levels ? 2 : i + 3;
    objects.push_back(arrayRecord(Array(width, UID{next})));
  }
  objects.emplace_back("leaf");
  return archive(objects);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long allowedMilliseconds = 5000;
#else
constexpr long allowedMilliseconds = 100;
#endif

// The error in a process of limited means; "read" when there is none.
std::string readInChild(const std::string& input) {
  int channel[2];
  if (pipe(channel) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    std::ifstream status("/proc/self/statm");
    rlim_t pages = 0;
    status >> pages;
    const rlim_t most = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (rlim_t{64} << 20);
    const rlimit memory{most, most};
    setrlimit(RLIMIT_AS, &memory);
#endif
    const Data bytes = test::bytes(input);
    const auto value = input.find("NSKeyedArchiver") == std::string::npos ? readPropertyList(bytes)
                                                                          : unarchiveKeyed(bytes);
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto milliseconds = used.ru_utime.tv_sec * 1000 + used.ru_utime.tv_usec / 1000;
    const std::string answer = value ? "read" : value.error().localizedDescription;
    const auto sent = write(channel[1], answer.data(), answer.size());
    _exit(sent == std::ssize(answer) && milliseconds < allowedMilliseconds ? 0 : 1);
  }
  close(channel[1]);
  std::string answer(200, '\0');
  const auto size = read(channel[0], answer.data(), answer.size());
  close(channel[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) return "took too much";
  return answer.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

TEST(HostileInput, IsDealtWithQuicklyAndInLittleMemory) {
  const struct {
    const char* name;
    std::string input;
    const char* result;
  } cases[] = {
      {"shared references", sharedReferences(), "too many values"},
      {"a shared text", sharedText(), "too much text"},
      {"a long key of many dictionaries", sharedKey(), "too much text"},
      {"objects without use", unusedObjects(), "too many values"},
      {"overlapping objects", overlappingObjects(), "overlap"},
      {"deep binary", deepBinary(), "nested too deeply"},
      {"deep XML", "<plist>" + repeated("<array>", 100'000), "nested too deeply"},
      {"deep OpenStep", std::string(100'000, '('), "nested too deeply"},
      {"deep OpenStep dictionaries", repeated("{a=", 100'000), "nested too deeply"},
      {"array of billions", binary({"\xAF\x12\x7F\xFF\xFF\xFF"}), "ends outside"},
      {"dictionary of more", binary({"\xDF\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}), "ends outside"},
      {"string of billions", binary({"\x6F\x12\xFF\xFF\xFF\xFF"}), "ends outside"},
      {"entities", "<!DOCTYPE plist [<!ENTITY a '" + std::string(50'000, 'a') + "'>]><plist/>",
       "internal subset"},
      {"archive of shared arrays", bombArchive(20, 40, false), "too many values"},
      {"deep archive", bombArchive(5000, 1, false), "nested too deeply"},
      {"cyclic archive", bombArchive(30, 1, true), "contains itself"},
  };
  for (const auto& [name, input, result] : cases) {
    EXPECT_THAT(readInChild(input), testing::HasSubstr(result)) << name;
  }
}

TEST(HostileInput, SharedTextIsNotWrittenOutWithoutEnd) {
  Value shared = std::string(200'000, 'x');
  for (int i = 0; i < 3; ++i) shared = Array(100, shared);
  for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
    const auto written = writePropertyList(shared, format);
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error().localizedDescription, testing::HasSubstr("too large"));
  }
}

}  // namespace
}  // namespace qf
