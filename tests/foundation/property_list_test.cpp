// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <limits>

#include "foundation/KeyedArchive.h"
#include "foundation/StringTable.h"
#include "tests/foundation/Dump.h"
#include "tests/foundation/Samples.h"

namespace qf {
namespace {

using test::dump;
using test::Samples;
using testing::HasSubstr;
using namespace std::string_literals;

std::string errorOf(const auto& result) {
  return result ? "read" : result.error().localizedDescription;
}

std::string plist(const std::string& element) { return "<plist>" + element + "</plist>"; }
std::string asItIs(const std::string& text) { return text; }

void expectReads(const std::vector<std::pair<std::string, Value>>& table, auto wrap) {
  for (const auto& [text, value] : table) {
    const auto result = test::read(wrap(text));
    EXPECT_TRUE(result && dump(*result) == dump(value)) << text << ": " << errorOf(result);
  }
}

// Each error with the texts that make it.
using Refusals = std::vector<std::pair<std::string, std::vector<std::string>>>;

void expectRefuses(const Refusals& table, auto wrap) {
  for (const auto& [error, texts] : table) {
    for (const auto& text : texts) {
      EXPECT_THAT(errorOf(test::read(wrap(text))), HasSubstr(error)) << text;
    }
  }
}

TEST(XMLPropertyList, ReadsEveryElement) {
  expectReads({{"<true/>", true},
               {"<false></false>", false},
               {"<integer> -0x10 </integer>", -16},
               {"<integer>+18446744073709551615</integer>", UINT64_MAX},
               {"<integer>-9223372036854775808</integer>", INT64_MIN},
               {"<real>-1e3</real>", -1000.0},
               {"<real>+infinity</real>", std::numeric_limits<double>::infinity()},
               {"<date>2000-12-31T23:59:59Z</date>", Date{-1}},
               {"<data> AP8\n=* </data>", Data{0, 255}},
               {"<string/>", ""},
               {"<string> a&lt;&#x1F600;<![CDATA[<&]]><!-- no -->\r\nb\rc </string>",
                " a<\U0001F600<&\nb\nc "},
               {"<dict><key>a</key><array><dict/></array><key>a</key><array/></dict>",
                Dictionary{{"a", Array{}}}}},
              plist);
  expectReads({{"\xEF\xBB\xBF<?xml version='1.0'?>\n<!DOCTYPE plist SYSTEM \"[\"><!-- c -->\n" +
                    plist("<string a='>'>\uFFFD\uFB01</string>") + "\n<!-- d -->",
                "\uFFFD\uFB01"},
               {"<?xml version='1.0'?><array/>", Array{}},
               {"<dict><key>a</key><data/></dict>", Dictionary{{"a", Data{}}}},
               {"\xFF\xFE<\0t\0r\0u\0e\0/\0>\0"s.insert(2, "<\0?\0?\0>\0"s), true}},
              asItIs);
}

TEST(XMLPropertyList, RefusesWithTheLine) {
  expectRefuses(
      {{"whole number",
        {"<integer>9223372036854775808x</integer>", "<integer>--1</integer>",
         "<integer>18446744073709551616</integer>", "<integer>-9223372036854775809</integer>"}},
       {"real", {"<real>+-1</real>", "<real>nan(1)</real>"}},
       {"not a date", {"<date>2001-02-29T00:00:00Z</date>", "<date>2001-01-01</date>"}},
       {"base 64", {"<data>A</data>", "<data>AA==AA==</data>"}},
       {"truth", {"<true>x</true>"}},
       {"only text", {"<string><b/></string>"}},
       {"no character",
        {"<string>&#xD800;</string>", "<string>&#0;</string>", "<string>&#4294967361;</string>"}},
       {"not declared", {"<string>&nbsp;</string>"}},
       {"forbids",
        {"<string>\uFFFF</string>", "<string>123456789\x01</string>", "<!-- \x02 --><true/>"}},
       {"UTF-8 at byte 15", {"<string>\xC0\x80</string>", "<string>\xED\xA0\x80"}},
       {"expected a key", {"<dict><true/></dict>"}},
       {"expected an element", {"<dict><key>a</key></dict>"}},
       {"end of \"array\"", {"<array><true/></dict>"}},
       {"end of \"plist\"", {"<true/><true/>"}}},
      plist);
  expectRefuses({{"line 3: unknown element \"what\"", {"<plist>\n\n<what/></plist>"}},
                 {"too early", {"<plist><string>a"}},
                 {"follows", {plist("<true/>") + "x"}},
                 {"no value", {"<plist/>"}},
                 {"internal subset", {"<!DOCTYPE plist [<!ENTITY a 'b'>]><true/>"}},
                 {"encoding", {"<?xml version='1.0' encoding='ISO-8859-1'?><true/>"}},
                 {"UTF-16", {"\xFE\xFF\xD8\x00"}}},
                asItIs);
}

TEST(XMLPropertyList, WritesTheCustomaryForm) {
  const Value value =
      Dictionary{{"b", Array{"x\r<&>", 1.5, Data{1, 2}, Dictionary{}}}, {"a", Date{0}}};
  const auto written = writePropertyList(value, PropertyListFormat::xml);
  ASSERT_TRUE(written);
  EXPECT_EQ(std::string(written->begin(), written->end()),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n<dict>\n\t<key>a</key>\n\t<date>2001-01-01T00:00:00Z</date>\n"
            "\t<key>b</key>\n\t<array>\n\t\t<string>x&#13;&lt;&amp;&gt;</string>\n"
            "\t\t<real>1.5</real>\n\t\t<data>AQI=</data>\n\t\t<dict/>\n\t</array>\n</dict>\n"
            "</plist>\n");
}

TEST(PropertyList, RefusesToWriteWhatAFormatCannotHold) {
  constexpr auto xml = PropertyListFormat::xml;
  constexpr auto binary = PropertyListFormat::binary;
  Value deep = 1;
  for (int i = 0; i < 513; ++i) deep = Array{deep};
  for (const Value& value : {Value("\xFF"), Value("\xED\xA0\x80"), Value(Dictionary{{"\xC3", 1}}),
                             Value(Date{1e300}), Value(Date{std::nan("")}), deep}) {
    EXPECT_FALSE(writePropertyList(value, xml)) << value.description();
    EXPECT_FALSE(writePropertyList(value, binary)) << value.description();
  }
  for (const Value& value : {Value("a\x01"), Value("\uFFFE"), Value(UID{1}), Value(Date{-1e11})}) {
    EXPECT_FALSE(writePropertyList(value, xml)) << value.description();
    EXPECT_TRUE(writePropertyList(value, binary)) << value.description();
  }
}

TEST(PropertyList, WhatIsWrittenComesBack) {
  Samples samples(3);
  for (int i = 0; i < 500; ++i) {
    const Value value = samples.make();
    const auto archive = archiveKeyed(value);
    ASSERT_TRUE(archive) << archive.error().localizedDescription;
    EXPECT_EQ(dump(*unarchiveKeyed(*archive, PropertyListLimits::file())), dump(value));
    for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
      const auto bytes = writePropertyList(value, format);
      ASSERT_TRUE(bytes) << bytes.error().localizedDescription;
      EXPECT_EQ(dump(*readPropertyList(*bytes)), dump(value));
    }
  }
}

TEST(BinaryPropertyList, KeepsOrderAndWritesEqualThingsOnce) {
  const Value value = Dictionary{{"z", Array{"twice", "twice", 7, 7}}, {"a", "twice"}};
  const Data bytes = *writePropertyList(value, PropertyListFormat::binary);
  const std::string text(bytes.begin(), bytes.end());
  EXPECT_EQ(text.find("twice"), text.rfind("twice"));
  EXPECT_EQ(bytes.size(), 8U + 5 + 5 + 6 + 2 + 2 + 2 + 6 + 32);
  EXPECT_EQ(readPropertyList(bytes)->dictionary()->begin()->first, "z");
}

// Objects laid end to end, one-byte offsets and references, the first object the root.
std::string binary(const std::vector<std::string>& objects) {
  std::string bytes = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += static_cast<char>(bytes.size());
    bytes += object;
  }
  const auto table = static_cast<char>(bytes.size());
  return bytes + offsets + "\0\0\0\0\0\0\1\1"s + std::string(7, '\0') +
         static_cast<char>(objects.size()) + std::string(15, '\0') + table;
}

TEST(BinaryPropertyList, ReadsEveryWidth) {
  const auto alone = [](const std::string& object) { return binary({object}); };
  expectReads({{"\x10\xFF", 255},
               {"\x11\xFF\xFF", 65535},
               {"\x12\xFF\xFF\xFF\xFF", std::int64_t{UINT32_MAX}},
               {"\x13" + std::string(8, '\xFF'), -1},
               {"\x14" + std::string(8, '\0') + std::string(8, '\xFF'), UINT64_MAX},
               {"\x14" + std::string(16, '\xFF'), -1},
               {"\x22\x3F\xC0\0\0"s, 1.5},
               {"\x82\1\0\0"s, UID{65536}},
               {"\x61\0\xE9"s, "é"},
               {"\x52\xC3\xA9", "é"}},  // UTF-8 where ASCII is meant
              alone);
  expectReads({{binary({"\xA2\1\1"s, "\xD1\2\3"s, "\x51k", "\x5F\x10\3abc"}),
                Array{Dictionary{{"k", "abc"}}, Dictionary{{"k", "abc"}}}},
               {binary({"\xD2\1\1\2\3", "\x51k", "\x09", "\x51z"}), Dictionary{{"k", "z"}}}},
              asItIs);
}

TEST(BinaryPropertyList, RefusesWithTheOffset) {
  const std::string whole = binary({"\x09"});
  const auto with = [&whole](std::size_t fromEnd, char byte) {
    std::string bytes = whole;
    bytes[bytes.size() - fromEnd] = byte;
    return bytes;
  };
  const std::string zeros(8, '\0');
  expectRefuses(
      {{"not a whole", {"bplist00", "bplist00" + whole.substr(9)}},
       {"byte", {whole.substr(0, whole.size() - 1)}},
       {"not 1 to 8", {with(26, 0), with(26, 9), with(25, 0)}},
       {"can't hold", {with(17, 2), with(24, '\x7F')}},
       {"root", {with(9, 1)}},
       {"table", {with(1, 0), with(1, '\x7F')}},
       {"byte 8: an object without a value", {binary({"\x00"s})}},
       {"integer of an unknown size", {binary({"\x17\0"s})}},
       {"beyond 64 bits", {binary({"\x14\0\0\0\0\0\0\0\1"s + zeros})}},
       {"real of an unknown size", {binary({"\x21\0\0"s})}},
       {"no date", {binary({"\x33\x7F\xF8\0\0\0\0\0\0"s})}},
       {"UTF-16", {binary({"\x62\xD8\0\0\x41"s})}},
       {"neither ASCII nor UTF-8", {binary({"\x51\xC3"})}},
       {"size that is not an integer", {binary({"\x5F\x51\1"})}},
       {"ends outside",
        {binary({"\x5F\x13" + std::string(8, '\xFF')}), binary({"\x14\0\0\0\0\0\0\0\1" + zeros})}},
       {"byte 9: a reference to no object", {binary({"\xA1\7"})}},
       {"contains itself", {binary({"\xA1\0"s}), binary({"\xA1\1", "\xD1\2\0"s, "\x51k"})}},
       {"not a string", {binary({"\xD1\1\1", "\x09"})}},
       {"unknown kind", {binary({"\xC1\1", "\x09"})}}},
      asItIs);
}

TEST(OpenStepPropertyList, ReadsEveryForm) {
  expectReads(
      {{"word", "word"},
       {" /* c */ 'it'", "it"},
       {R"("a\n\"\\\101\200\U00e9\UD83D\uDE00\q\é")", "a\n\"\\A\u00A0é\U0001F600qé"},
       {"<0fbd 77>", Data{0x0F, 0xBD, 0x77}},
       {"(a, (), {},)", Array{"a", Array{}, Dictionary{}}},
       {"{ a = 1; b; 'c d' = <>; } // end", Dictionary{{"a", "1"}, {"b", "b"}, {"c d", Data{}}}},
       {"a = 1;\n\"b\" = (x);", Dictionary{{"a", "1"}, {"b", Array{"x"}}}},
       {"(<*I-5>,<*R1.5>,<*BY>,<*D2001-01-01 01:00:00 +0100>,<[AAE=]>)",
        Array{-5, 1.5, true, Date{0}, Data{0, 1}}}},
      asItIs);
}

TEST(OpenStepPropertyList, RefusesWithTheLine) {
  expectRefuses({{"line 1: no value", {""}},
                 {"line 2: no value", {"\n /* c */"}},
                 {"follows", {"a b"}},
                 {"semicolon", {"{a = b}"}},
                 {"equals sign", {"{a b;}"}},
                 {"end of the dictionary", {"{a = b;"}},
                 {"comma", {"(a"}},
                 {"line 4: expected a value", {"(a\n,\n\n;)"}},
                 {"without its end", {"'a", "<[AA", "<*I1", "/* a"}},
                 {"hexadecimal", {"<0>", "<0g>"}},
                 {"typed", {"<*I1x>", "<*>", "<*D2001-13-01 00:00:00 +0000>"}},
                 {"expected a value", {"ü", "(ü)"}},
                 {"expected a key", {"{ü = a;}"}},
                 {"expected an equals sign", {"{aü = a;}"}},
                 {"octal", {R"("\777")", R"("\0")"}},
                 {"Unicode escape", {R"("\UD83D")"}},
                 {"zero", {"'a\0b'"s, "'\\\0'"s}},
                 {"expected a key", {"a = 1; }"}}},
                asItIs);
}

TEST(PropertyList, StaysInItsLimits) {
  const PropertyListLimits limits{2, 4, 1000};
  const auto readWithin = [&limits](std::string_view text) {
    return errorOf(readPropertyList(test::bytes(text), limits));
  };
  const std::string twice = binary({"\xA2\1\1", "\xA1\2", "\x09"});
  for (const auto& [fits, deep, many] :
       {std::tuple{"((a),b)"s, "(((a)))"s, "(a,b,c,d)"s},
        std::tuple{plist("<array><dict/><true/></array>"),
                   plist("<array><array><array/></array></array>"),
                   plist("<array><true/><true/><true/><true/></array>")},
        std::tuple{binary({"\xA2\1\2", "\xA1\2", "\x09"}), binary({"\xA1\1", "\xA1\2", "\xA0"}),
                   twice}}) {
    EXPECT_EQ(readWithin(fits), "read");
    EXPECT_THAT(readWithin(deep), HasSubstr("nested too deeply"));
    EXPECT_THAT(readWithin(many), HasSubstr("too many values"));
  }
  // A shared object is measured at each place: here it lies one deeper than where it was read.
  EXPECT_THAT(readWithin(binary({"\xA2\1\2", "\xA0", "\xA1\1"})), HasSubstr("nested too deeply"));
  EXPECT_THAT(readWithin(std::string(1001, 'a')), HasSubstr("too large"));
}

TEST(StringTable, LooksUpTextsByKey) {
  const auto read = [](std::string_view text) { return StringTable::read(test::bytes(text)); };
  const auto table = read("/* menu */ \"None\" = \"Keine\";\n\"Space\" = \"Leer\\U00e4\";");
  ASSERT_TRUE(table) << table.error().localizedDescription;
  EXPECT_EQ(table->localized("None"), "Keine");
  EXPECT_EQ(table->localized("Space"), "Leerä");
  EXPECT_EQ(table->localized("Quit"), "Quit");
  EXPECT_FALSE(table->find("Quit"));
  EXPECT_EQ(read("\xFF\xFE\"\0a\0\"\0=\0\"\0\xE4\0\"\0;\0"s)->localized("a"), "ä");
  EXPECT_TRUE(read("") && read("// nothing"));
  EXPECT_THAT(errorOf(read("\n\"a\" = ;")), HasSubstr("line 2"));
  EXPECT_THAT(errorOf(read("a = b; )")), HasSubstr("expected a key"));
}

}  // namespace
}  // namespace qf
