// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <limits>

#include "foundation/StringTable.h"
#include "tests/foundation/Samples.h"

namespace qf {
namespace {

using test::Samples;
using testing::HasSubstr;
using namespace std::string_literals;

std::string errorOf(const auto& result) {
  return result ? "read" : result.error().localizedDescription;
}

struct Reads {
  std::string text;
  Value value;
};

struct Refuses {
  std::string text;
  std::string error;
};

void expectReads(const std::vector<Reads>& table) {
  for (const auto& [text, value] : table) {
    const auto result = test::read(text);
    EXPECT_TRUE(result && *result == value) << text << ": " << errorOf(result);
  }
}

void expectRefuses(const std::vector<Refuses>& table) {
  for (const auto& [text, error] : table) {
    EXPECT_THAT(errorOf(test::read(text)), HasSubstr(error)) << text;
  }
}

std::string plist(const std::string& element) { return "<plist>" + element + "</plist>"; }

TEST(XMLPropertyList, ReadsEveryElement) {
  expectReads({
      {plist("<true/>"), true},
      {plist("<false></false>"), false},
      {plist("<integer> -0x10 </integer>"), -16},
      {plist("<integer>+18446744073709551615</integer>"), UINT64_MAX},
      {plist("<integer>-9223372036854775808</integer>"), INT64_MIN},
      {plist("<real>-1e3</real>"), -1000.0},
      {plist("<real>+infinity</real>"), std::numeric_limits<double>::infinity()},
      {plist("<date>2000-12-31T23:59:59Z</date>"), Date{-1}},
      {plist("<data> AP8\n=* </data>"), Data{0, 255}},
      {plist("<string/>"), ""},
      {plist("<string> a&lt;&#x1F600;<![CDATA[<&]]><!-- no -->\r\nb\rc </string>"),
       " a<\U0001F600<&\nb\nc "},
      {plist("<dict><key>a</key><array><dict/></array><key>a</key><array/></dict>"),
       Dictionary{{"a", Array{}}}},
      {"\xEF\xBB\xBF<?xml version='1.0'?>\n<!DOCTYPE plist SYSTEM \"[\"><!-- c -->\n" +
           plist("<string a='>'>\uFFFD\uFB01</string>") + "\n<!-- d -->",
       "\uFFFD\uFB01"},
      {"<?xml version='1.0'?><array/>", Array{}},
      {"\xFF\xFE<\0p\0l\0i\0s\0t\0>\0<\0t\0r\0u\0e\0/\0>\0<\0/\0p\0l\0i\0s\0t\0>\0"s, true},
  });
}

TEST(XMLPropertyList, RefusesWithTheLine) {
  expectRefuses({
      {"<plist>\n\n<what/></plist>", "line 3: unknown element \"what\""},
      {plist("<integer>9223372036854775808x</integer>"), "whole number"},
      {plist("<integer>18446744073709551616</integer>"), "whole number"},
      {plist("<integer>-9223372036854775809</integer>"), "whole number"},
      {plist("<integer>--1</integer>"), "whole number"},
      {plist("<real>+-1</real>"), "real"},
      {plist("<real>nan(1)</real>"), "real"},
      {plist("<date>2001-02-29T00:00:00Z</date>"), "not a date"},
      {plist("<date>2001-01-01</date>"), "not a date"},
      {plist("<data>A</data>"), "base 64"},
      {plist("<data>AA==AA==</data>"), "base 64"},
      {plist("<true>x</true>"), "truth"},
      {"<plist><string>a", "too early"},
      {plist("<string><b/></string>"), "only text"},
      {plist("<string>&#xD800;</string>"), "no character"},
      {plist("<string>&#0;</string>"), "no character"},
      {plist("<string>&#4294967361;</string>"), "no character"},
      {plist("<string>&nbsp;</string>"), "not declared"},
      {plist("<string>\uFFFF</string>"), "forbids"},
      {plist("<string>a\x01</string>"), "forbids"},
      {plist("<!-- \x02 --><true/>"), "forbids"},
      {plist("<string>\xC0\x80</string>"), "UTF-8 at byte 15"},
      {plist("<string>\xED\xA0\x80</string>"), "UTF-8"},
      {plist("<dict><true/></dict>"), "expected a key"},
      {plist("<dict><key>a</key></dict>"), "expected an element"},
      {plist("<array><true/></dict>"), "end of \"array\""},
      {plist("<true/><true/>"), "end of \"plist\""},
      {plist("<true/>") + "x", "follows"},
      {"<plist/>", "no value"},
      {"<!DOCTYPE plist [<!ENTITY a 'b'>]>" + plist("<true/>"), "internal subset"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?>" + plist("<true/>"), "encoding"},
      {"\xFE\xFF\xD8\x00", "UTF-16"},
  });
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
    for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
      const auto bytes = writePropertyList(value, format);
      ASSERT_TRUE(bytes) << bytes.error().localizedDescription;
      const auto again = readPropertyList(*bytes);
      ASSERT_TRUE(again) << again.error().localizedDescription;
      ASSERT_EQ(*again, value);
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
  expectReads({
      {binary({"\x10\xFF"}), 255},
      {binary({"\x11\xFF\xFF"}), 65535},
      {binary({"\x12\xFF\xFF\xFF\xFF"}), std::int64_t{UINT32_MAX}},
      {binary({"\x13" + std::string(8, '\xFF')}), -1},
      {binary({"\x14" + std::string(8, '\0') + std::string(8, '\xFF')}), UINT64_MAX},
      {binary({"\x14" + std::string(16, '\xFF')}), -1},
      {binary({"\x22\x3F\xC0\0\0"s}), 1.5},
      {binary({"\x82\1\0\0"s}), UID{65536}},
      {binary({"\x61\0\xE9"s}), "é"},
      {binary({"\x52\xC3\xA9"}), "é"},  // UTF-8 where ASCII is meant
      {binary({"\xA2\1\1"s, "\xD1\2\3"s, "\x51k", "\x5F\x10\3abc"}),
       Array{Dictionary{{"k", "abc"}}, Dictionary{{"k", "abc"}}}},
  });
}

TEST(BinaryPropertyList, RefusesWithTheOffset) {
  const std::string whole = binary({"\x09"});
  const auto with = [&whole](std::size_t fromEnd, char byte) {
    std::string bytes = whole;
    bytes[bytes.size() - fromEnd] = byte;
    return bytes;
  };
  expectRefuses({
      {"bplist00", "not a whole"},
      {whole.substr(0, whole.size() - 1), "byte"},
      {with(26, 0), "not 1 to 8"},
      {with(26, 9), "not 1 to 8"},
      {with(25, 0), "not 1 to 8"},
      {with(17, 2), "can't hold"},
      {with(24, '\x7F'), "can't hold"},
      {with(9, 1), "root"},
      {with(1, 0), "table"},
      {with(1, '\x7F'), "table"},
      {binary({"\x00"s}), "byte 8: an object without a value"},
      {binary({"\x17\0"s}), "integer of an unknown size"},
      {binary({"\x14\0\0\0\0\0\0\0\1" + std::string(8, '\0')}), "ends outside"},
      {binary({"\x14\0\0\0\0\0\0\0\1"s + std::string(8, '\0')}), "beyond 64 bits"},
      {binary({"\x21\0\0"s}), "real of an unknown size"},
      {binary({"\x33\x7F\xF8\0\0\0\0\0\0"s}), "no date"},
      {binary({"\x62\xD8\0\0\x41"s}), "UTF-16"},
      {binary({"\x51\xC3"}), "neither ASCII nor UTF-8"},
      {binary({"\x5F\x51\1"}), "size that is not an integer"},
      {binary({"\x5F\x13" + std::string(8, '\xFF')}), "ends outside"},
      {binary({"\xA1\7"}), "byte 9: a reference to no object"},
      {binary({"\xA1\0"s}), "contains itself"},
      {binary({"\xA1\1", "\xD1\2\0"s, "\x51k"}), "contains itself"},
      {binary({"\xD1\1\1", "\x09"}), "not a string"},
      {binary({"\xD2\1\1\2\2", "\x51k", "\x09"}), "comes twice"},
      {binary({"\xC1\1", "\x09"}), "unknown kind"},
  });
}

TEST(OpenStepPropertyList, ReadsEveryForm) {
  expectReads({
      {"word", "word"},
      {" /* c */ 'it''s'"s.substr(0, 13), "it"},
      {R"("a\n\"\\\101\200\U00e9\UD83D\uDE00")", "a\n\"\\A\u00A0é\U0001F600"},
      {"<0fbd 77>", Data{0x0F, 0xBD, 0x77}},
      {"(a, (), {},)", Array{"a", Array{}, Dictionary{}}},
      {"{ a = 1; b; 'c d' = <>; } // end", Dictionary{{"a", "1"}, {"b", "b"}, {"c d", Data{}}}},
      {"a = 1;\n\"b\" = (x);", Dictionary{{"a", "1"}, {"b", Array{"x"}}}},
      {"(<*I-5>,<*R1.5>,<*BY>,<*D2001-01-01 01:00:00 +0100>,<[AAE=]>)",
       Array{-5, 1.5, true, Date{0}, Data{0, 1}}},
  });
}

TEST(OpenStepPropertyList, RefusesWithTheLine) {
  expectRefuses({
      {"", "line 1: no value"},
      {"\n /* c */", "line 2: no value"},
      {"a b", "follows"},
      {"{a = b}", "semicolon"},
      {"{a b;}", "equals sign"},
      {"{a = b;", "end of the dictionary"},
      {"(a", "comma"},
      {"(a\n,\n\n;)", "line 4: expected a value"},
      {"'a", "without its end"},
      {"/* a", "comment"},
      {"<0>", "hexadecimal"},
      {"<0g>", "hexadecimal"},
      {"<*I1x>", "typed"},
      {R"("\q")", "unknown escape"},
      {R"("\777")", "octal"},
      {R"("\UD83D")", "Unicode escape"},
      {"'a\0b'"s, "zero"},
      {"a = 1; }", "expected a key"},
  });
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
  EXPECT_EQ(table->find("Quit"), nullptr);
  EXPECT_EQ(read("\xFF\xFE\"\0a\0\"\0=\0\"\0\xE4\0\"\0;\0"s)->localized("a"), "ä");
  EXPECT_TRUE(read("") && read("// nothing"));
  EXPECT_THAT(errorOf(read("\n\"a\" = ;")), HasSubstr("line 2"));
  EXPECT_THAT(errorOf(read("a = b; )")), HasSubstr("expected a key"));
}

}  // namespace
}  // namespace qf
