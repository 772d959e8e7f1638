// SPDX-License-Identifier: Apache-2.0
// Every built-in cleaner on the text of the clipboard, the cleaner chosen by the first byte. What
// it makes is text.
#include <iterator>

#include "engine/lists/QFCleanerLibrary.h"
#include "foundation/Unicode.h"
#include "fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  static const QFCleanerLibrary library;
  if (size == 0) return 0;
  const auto& cleaners = library.builtInCleaners();
  const auto chosen =
      std::next(cleaners.begin(), static_cast<std::ptrdiff_t>(bytes[0] % cleaners.size()));
  const std::string_view text(reinterpret_cast<const char*>(bytes) + 1, size - 1);
  const auto cleaned = library.clean(chosen->first, text);
  if (cleaned) {
    fuzz::check(!invalidUTF8Offset(*cleaned), "a cleaner that makes ill-formed text");
  } else {
    fuzz::check(!cleaned.error().localizedDescription.empty(), "an error without words");
  }
  return 0;
}
