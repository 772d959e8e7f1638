// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "engine/cleaners/TextPart.h"

namespace qf {

/// The first web address (http, https, ftp, or a host that begins with "www.") at or after the
/// position; length 0 when there is none. Punctuation that ends the sentence around it, and a
/// bracket that it did not open, do not belong to it.
TextPart findWebAddress(std::string_view text, std::size_t position);

}  // namespace qf
