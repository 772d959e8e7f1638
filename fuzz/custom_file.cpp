// SPDX-License-Identifier: Apache-2.0
// The file of a person's own cleaners: what is read of it can be published, and cleans.
#include "engine/lists/CustomListsReader.h"
#include "engine/lists/ListData.h"
#include "engine/lists/QFCustomFile.h"
#include "fuzz/Checks.h"
#include "tests/support/FakeFileManager.h"
#include "tests/support/LogCapture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  static const QFCleanerLibrary library;
  const LogCapture log;
  FakeFileManager files;
  files.files["/cleaners.json"] = Data(bytes, bytes + size);
  const auto lists = QFCustomFile("/cleaners.json", files).read(library.builtInCleaners());
  if (!lists) {
    fuzz::check(!lists.error().localizedDescription.empty(), "an error without words");
    return 0;
  }
  const Value published = withCustomLists({}, *lists);
  fuzz::check(bool(writePropertyList(published, PropertyListFormat::binary)),
              "lists that can't be published");
  for (const auto& [token, clean] : makeCustomCleaners(*lists, library.builtInCleaners())) {
    const auto cleaned = clean("Some text, 1 line.\n");
    fuzz::check(cleaned || !cleaned.error().localizedDescription.empty(), "an error without words");
  }
  return 0;
}
