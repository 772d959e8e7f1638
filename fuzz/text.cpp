// SPDX-License-Identifier: Apache-2.0
// Bytes that become text: a file's, with an encoding chosen by the first byte, and a clipboard's.
#include <iterator>

#include "engine/program/TextEncoding.h"
#include "foundation/Unicode.h"
#include "fuzz/Checks.h"
#include "hosts/linux/clipboard/ClipboardText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  static constexpr std::string_view encodings[] = {"",          "UTF-16LE", "UTF-32", "ISO-8859-1",
                                                   "Shift_JIS", "GB18030",  "UTF-7",  "none"};
  static constexpr std::string_view types[] = {"UTF8_STRING", "STRING", "text/plain",
                                               "text/plain;charset=utf-8", "TEXT"};
  if (size == 0) return 0;
  const Data content(bytes + 1, bytes + size);
  const auto decoded = decodeText(content, encodings[bytes[0] % std::size(encodings)]);
  if (decoded) {
    fuzz::check(!invalidUTF8Offset(decoded->text), "ill-formed text of a file");
    const auto encoded = encodeText(decoded->text, decoded->encoding);
    fuzz::check(encoded || !encoded.error().localizedDescription.empty(), "an error without words");
  }
  const std::string text = textFromSelection(types[bytes[0] % std::size(types)], content);
  fuzz::check(!invalidUTF8Offset(text), "ill-formed text of a clipboard");
  latin1FromText(Data(text.begin(), text.end()));
  return 0;
}
