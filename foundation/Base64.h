// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

// Base 64 (RFC 4648, section 4). Any thread.

/// Characters outside the alphabet are skipped. Nothing when the characters end within a byte or
/// when any follow the padding.
std::optional<Data> decodeBase64(std::string_view text);

/// Appends the encoded bytes with padding, without line breaks.
void appendBase64(std::string& text, std::span<const std::uint8_t> bytes);

}  // namespace qf
