// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace qf {

/// The character of a byte in the NeXTSTEP encoding (NEXTSTEP.TXT among the Unicode Consortium's
/// vendor mappings); U+FFFD for the two bytes that have none.
char32_t unicodeFromNextStep(std::uint8_t byte);

}  // namespace qf
