// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "foundation/KeyedArchive.h"
#include "tests/foundation/Samples.h"

namespace qf {
namespace {

using testing::HasSubstr;

Value ref(std::uint64_t index) { return UID{index}; }

Value classRecord(const char* name) {
  return Dictionary{{"$classname", name}, {"$classes", Array{name, "NSObject"}}};
}

// An archive of these objects, numbered from 1, the first the root; with changed outer fields.
Result<Value> unarchive(const Array& objects, const Dictionary& changes = {}) {
  Array all{"$null"};
  all.insert(all.end(), objects.begin(), objects.end());
  Dictionary archive{{"$version", 100000},
                     {"$archiver", "NSKeyedArchiver"},
                     {"$top", Dictionary{{"root", ref(1)}}},
                     {"$objects", all}};
  for (const auto& [key, value] : changes) archive.set(key, value);
  return unarchiveKeyed(*writePropertyList(archive, PropertyListFormat::binary));
}

TEST(KeyedArchive, AShortcutReadsAsItsCodedFields) {
  const Dictionary fields{{"KeyCode", -1}, {"ModifierFlags", 0x20000}};
  const auto bytes = archiveKeyedObject("MASShortcut", fields);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(*unarchiveKeyed(*bytes), Value(fields));
  // The numbers stand in the object itself.
  const auto archive = readPropertyList(*bytes);
  EXPECT_EQ(archive->dictionary()
                ->array("$objects")
                ->at(1)
                .dictionary()
                ->find("KeyCode")
                ->integer()
                ->bits(),
            UINT64_MAX);
}

TEST(KeyedArchive, ARepeatedObjectIsArchivedOnce) {
  const Value shared = Array{"a"};
  const Data bytes = *archiveKeyed(Array{shared, shared, "a"});
  // $null, the outer array, the inner one, "a", the class.
  EXPECT_EQ(readPropertyList(bytes)->dictionary()->array("$objects")->size(), 5U);
  EXPECT_FALSE(archiveKeyed(UID{1}));
  EXPECT_FALSE(archiveKeyed("\xFF"));
}

TEST(KeyedArchive, ReadsTheOtherFormsOfItsClasses) {
  const auto value = unarchive({
      Dictionary{{"$class", ref(2)},
                 {"NS.objects", Array{ref(3), ref(5), ref(7), ref(9), ref(11)}}},
      classRecord("NSMutableArray"),
      Dictionary{{"$class", ref(4)}, {"NS.string", "inline"}},
      classRecord("NSMutableString"),
      Dictionary{{"$class", ref(6)}, {"NS.data", ref(8)}},
      classRecord("NSMutableData"),
      Dictionary{{"$class", ref(10)}, {"NS.time", 1.5}},
      Data{1},
      Date{2},
      classRecord("NSDate"),
      Dictionary{{"$class", ref(12)}, {"NS.keys", Array{ref(3)}}, {"NS.objects", Array{ref(3)}}},
      classRecord("NSMutableDictionary"),
  });
  ASSERT_TRUE(value) << value.error().localizedDescription;
  EXPECT_EQ(*value,
            Value(Array{"inline", Data{1}, Date{1.5}, Date{2}, Dictionary{{"inline", "inline"}}}));
}

TEST(KeyedArchive, RefusesWithTheObject) {
  const auto array = [](Value objects, std::uint64_t classIndex = 2) {
    return Value(Dictionary{{"$class", ref(classIndex)}, {"NS.objects", std::move(objects)}});
  };
  const auto dictionary = [](Array keys, Array objects) {
    return Value(Dictionary{{"$class", ref(2)}, {"NS.keys", keys}, {"NS.objects", objects}});
  };
  const Value arrays = classRecord("NSArray");
  const Value dictionaries = classRecord("NSDictionary");
  struct Case {
    Array objects;
    const char* error;
    Dictionary changes = {};
  };
  const Case cases[] = {
      {{1}, "$version", {{"$version", 99999}}},
      {{1}, "$archiver", {{"$archiver", "Other"}}},
      {{1}, "root", {{"$top", Dictionary{{"root", 1}}}}},
      {{1}, "$objects", {{"$objects", Array{1}}}},
      {{1}, "no object where", {{"$top", Dictionary{{"root", ref(0)}}}}},
      {{1}, "object 2: outside", {{"$top", Dictionary{{"root", ref(2)}}}}},
      {{ref(1)}, "object 1: neither"},
      {{Array{}}, "object 1: neither"},
      {{Dictionary{}}, "object 1: an object without a class"},
      {{array(Array{}), "NSArray"}, "not described"},
      {{array(Array{}), Dictionary{{"$classname", "NSArray"}, {"$classes", Array{"NSData"}}}},
       "not described"},
      {{array(Array{}), classRecord("NSTask")}, "\"NSTask\", which is not read"},
      {{array(1), arrays}, "without its parts"},
      {{array(Array{1}), arrays}, "no reference"},
      {{array(Array{ref(1)}), arrays}, "object 1: contains itself"},
      {{array(Array{ref(0)}), arrays}, "no object where"},
      {{dictionary({ref(3)}, {}), dictionaries, "k"}, "not as many"},
      {{dictionary({ref(3), ref(3)}, {ref(3), ref(3)}), dictionaries, "k"}, "comes twice"},
      {{dictionary({ref(3)}, {ref(3)}), dictionaries, 1}, "not a string"},
      {{Dictionary{{"$class", ref(2)}, {"NS.string", Data{}}}, classRecord("NSString")}, "content"},
      {{Dictionary{{"$class", ref(2)}, {"NS.time", "x"}}, classRecord("NSDate")}, "time"},
      {{Dictionary{{"$class", ref(2)}, {"x", Array{}}}, classRecord("MASShortcut")},
       "no reference"},
  };
  for (const auto& [objects, error, changes] : cases) {
    const auto value = unarchive(objects, changes);
    EXPECT_THAT(value ? "read" : value.error().localizedDescription, HasSubstr(error));
  }
  EXPECT_FALSE(unarchiveKeyed(test::bytes("<plist><dict/></plist>")));
}

TEST(KeyedArchive, StaysInItsLimits) {
  Value deep = "leaf";
  for (int i = 0; i < 64; ++i) deep = Array{deep};
  EXPECT_TRUE(unarchiveKeyed(*archiveKeyed(deep)));
  EXPECT_FALSE(unarchiveKeyed(*archiveKeyed(Array{deep})));
}

}  // namespace
}  // namespace qf
