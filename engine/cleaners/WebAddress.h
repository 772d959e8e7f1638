// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// A part of a text, by its bytes.
struct TextPart {
  std::size_t start = 0;
  std::size_t length = 0;
};

/// The first web address (http, https, ftp, or a host that begins with "www.") at or after the
/// position; length 0 when there is none. Punctuation that ends the sentence around it, and a
/// bracket that it did not open, do not belong to it.
TextPart findWebAddress(std::string_view text, std::size_t position);

/// The address without what tells who follows it: parameters such as "utm_source" and "fbclid".
/// Everything else stays as it is spelt.
std::string withoutTracking(std::string_view address);

}  // namespace qf
