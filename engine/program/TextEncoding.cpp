// SPDX-License-Identifier: Apache-2.0
#include "engine/program/TextEncoding.h"

#include <unicode/ucnv.h>

#include <memory>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

struct Mark {
  std::string_view bytes;
  const char* encoding;
};
using namespace std::string_view_literals;
/// That of UTF-32 begins like one of UTF-16.
constexpr Mark marks[] = {{"\xEF\xBB\xBF", "UTF-8"},
                          {"\xFF\xFE\0\0"sv, "UTF-32LE"},
                          {"\0\0\xFE\xFF"sv, "UTF-32BE"},
                          {"\xFF\xFE", "UTF-16LE"},
                          {"\xFE\xFF", "UTF-16BE"}};

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

/// A converter that stops at the first fault.
Converter makeConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name.c_str(), &status), &ucnv_close);
  if (U_FAILURE(status)) return {nullptr, &ucnv_close};
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
  return converter;
}

Result<std::string> toUTF8(std::string_view bytes, const std::string& encoding) {
  const Converter converter = makeConverter(encoding);
  if (!converter) return Error{"there is no encoding \"" + encoding + '"'};
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString text(bytes.data(), static_cast<int32_t>(bytes.size()), converter.get(),
                                status);
  if (U_FAILURE(status)) return Error{"it is not text in " + encoding};
  return utf8String(text);
}

}  // namespace

Result<EncodedText> decodeText(std::span<const std::uint8_t> bytes, std::string_view fallback) {
  std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  EncodedText result;
  if (!fallback.empty()) result.encoding.name = fallback;
  for (const Mark& mark : marks) {
    if (!rest.starts_with(mark.bytes)) continue;
    result.encoding = {mark.encoding, std::string(mark.bytes)};
    rest.remove_prefix(mark.bytes.size());
    break;
  }
  if (result.encoding.name == "UTF-8") {
    if (!isValidUTF8(rest)) return Error{"it is not text in UTF-8"};
    result.text = rest;
  } else {
    Result<std::string> text = toUTF8(rest, result.encoding.name);
    if (!text) return text.error();
    result.text = *std::move(text);
  }
  if (result.text.find('\0') != std::string::npos) return Error{"it is not text"};
  return result;
}

Result<Data> encodeText(std::string_view text, const TextEncoding& encoding) {
  Data result(encoding.mark.begin(), encoding.mark.end());
  if (encoding.name == "UTF-8") {
    result.insert(result.end(), text.begin(), text.end());
    return result;
  }
  const Converter converter = makeConverter(encoding.name);
  if (!converter) return Error{"there is no encoding \"" + encoding.name + '"'};
  const icu::UnicodeString characters = unicodeString(text);
  const auto room =
      UCNV_GET_MAX_BYTES_FOR_STRING(characters.length(), ucnv_getMaxCharSize(converter.get()));
  std::string bytes(static_cast<std::size_t>(room), '\0');
  UErrorCode status = U_ZERO_ERROR;
  const int32_t length = ucnv_fromUChars(converter.get(), bytes.data(), room,
                                         characters.getBuffer(), characters.length(), &status);
  if (U_FAILURE(status)) return Error{"it has characters that " + encoding.name + " has not"};
  result.insert(result.end(), bytes.begin(), bytes.begin() + length);
  return result;
}

}  // namespace qf
