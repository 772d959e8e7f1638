// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

/// How the text of a file is written.
struct TextEncoding {
  /// The converter's name, "UTF-8" for one.
  std::string name = "UTF-8";
  /// The byte-order mark that the file began with, empty for none.
  std::string mark;
};

struct EncodedText {
  std::string text;  ///< valid UTF-8, without the mark
  TextEncoding encoding;
};

/// Reads text as UTF-8, with or without mark, UTF-16 or UTF-32 with one; without a mark in
/// `fallback` where that is given. Fails when the bytes are none of these, or hold a NUL: they are
/// not text.
Result<EncodedText> decodeText(std::span<const std::uint8_t> bytes, std::string_view fallback = {});

/// The same way back. Fails for a character that the encoding does not have.
Result<Data> encodeText(std::string_view text, const TextEncoding& encoding);

}  // namespace qf
