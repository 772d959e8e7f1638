// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>

/// Key codes that the shortcut classes know by name (docs/files.md has the whole table).
namespace qf::keyCode {

inline constexpr std::uint64_t notFound = 0x7FFFFFFFFFFFFFFF;  ///< no key
inline constexpr std::uint64_t q = 12;
inline constexpr std::uint64_t w = 13;
inline constexpr std::uint64_t tab = 48;
inline constexpr std::uint64_t space = 49;
inline constexpr std::uint64_t backspace = 51;
inline constexpr std::uint64_t escape = 53;
inline constexpr std::uint64_t forwardDelete = 117;

/// F1 to F20 in order.
inline constexpr std::array<std::uint64_t, 20> functionKeys = {
    122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111, 105, 107, 113, 106, 64, 79, 80, 90};

}  // namespace qf::keyCode
