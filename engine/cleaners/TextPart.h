// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace qf {

/// A part of a text, by its bytes.
struct TextPart {
  std::size_t start = 0;
  std::size_t length = 0;
};

}  // namespace qf
