// SPDX-License-Identifier: Apache-2.0
// Runs over a collection of property lists from public test suites, where it lies beside the
// checkout. QF_CORPUS is its folder; its index says what each file is.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "foundation/KeyedArchive.h"
#include "tests/foundation/Samples.h"

namespace qf {
namespace {

struct Judgement {
  std::string_view file;
  std::string_view reason;  // a part of the error; empty where it is read
};

// Files that the index judges otherwise.
constexpr Judgement judgements[] = {
    {"dd-plist/github-issue88.plist", ""},  // an unknown escape: the backslash is dropped
    // Characters outside ASCII without quotes.
    {"dd-plist/test-ascii-utf-16be.plist", "line 6: expected a value"},
    {"dd-plist/test-ascii-utf-16le.plist", "line 6: expected a value"},
    {"dd-plist/test-ascii-utf-32be.plist", "line 6: expected a value"},
    {"dd-plist/test-ascii-utf-32le.plist", "line 6: expected a value"},
    {"dd-plist/test-ascii-utf-8.plist", "line 7: expected a value"},
    {"rust-plist/ascii_utf8_strings.ostep", "expected a comma"},
    {"biplist/sorted.plist", "an unknown kind of object"},  // a set: no value of a property list
    {"dd-plist/github-issue76-xml.plist", "not a whole number"},  // "42xy"
    {"dd-plist/github-issue76.plist", "not well-formed UTF-8"},   // noise from a fuzzer
    // Archives of classes that are not read.
    {"bpylist2/complex_archive.plist", "crap.Foo"},
    {"bpylist2/data_archive.plist", "crap.Foo"},
    {"bpylist2/dataclass_archive.plist", "FooDataclass"},
    {"bpylist2/date_archive.plist", "crap.Foo"},
    {"bpylist2/empty_archive.plist", "crap.Foo"},
    {"bpylist2/null_archive.plist", "crap.Foo"},
    {"bpylist2/recursive_archive.plist", "crap.Foo"},
    {"bpylist2/simple_archive.plist", "crap.Foo"},
    {"plaso/NSKeyedArchiver.plist", "OC_BuiltinPythonDictionary"},
    {"plaso/com.apple.loginitems.plist", "$version"},  // not an archive at all
};

void expectOutcome(const std::string& file, const std::string& status, const Result<Value>& value) {
  const auto judgement = std::find_if(std::begin(judgements), std::end(judgements),
                                      [&file](const auto& entry) { return entry.file == file; });
  const std::string error = value ? "" : value.error().localizedDescription;
  EXPECT_EQ(error.empty(), bool(value)) << file;
  if (judgement != std::end(judgements)) {
    EXPECT_EQ(judgement->reason.empty(), bool(value)) << file;
    EXPECT_NE(error.find(judgement->reason), std::string::npos) << file << ": " << error;
  } else if (status == "valid" || status == "archive-valid") {
    EXPECT_TRUE(value) << file << ": " << error;
  } else if (status == "invalid" || status == "archive-invalid") {
    EXPECT_FALSE(value) << file;
  }
}

TEST(Corpus, WhatIsValidIsReadAndTheRestRefused) {
  const std::filesystem::path folder = QF_CORPUS;
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no corpus beside the checkout";
  std::istringstream index(test::textOf(folder / "INDEX.tsv"));
  std::string line;
  std::getline(index, line);  // the heading
  int count = 0;
  while (std::getline(index, line)) {
    std::istringstream fields(line);
    std::string file, format, status;
    std::getline(std::getline(std::getline(fields, file, '\t'), format, '\t'), status, '\t');
    const Data bytes = test::bytes(test::textOf(folder / file));
    const bool isArchive = status.starts_with("archive");
    expectOutcome(file, status, isArchive ? unarchiveKeyed(bytes) : readPropertyList(bytes));
    ++count;
  }
  EXPECT_GT(count, 300);
}

}  // namespace
}  // namespace qf
