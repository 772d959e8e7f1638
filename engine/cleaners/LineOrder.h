// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unicode/coll.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

/// The order of lines in a dictionary: Unicode's root collation, the same on every machine, with
/// numbers by their value. Lines of plain ASCII are compared without ICU where their letters tell,
/// since that is most of the work for most texts. One thread at a time.
class LineOrder {
 public:
  struct Line {
    std::string_view text;
    bool isPlain = false;         ///< ASCII without control characters
    std::uint64_t beginning = 0;  ///< of a plain one the ranks of its first characters
    unsigned known = 0;           ///< how many of these eight are meant
  };

  /// Fails where ICU's rules are missing.
  static Result<LineOrder> make();

  Line line(std::string_view text) const;
  bool isLess(const Line& a, const Line& b) const;

 private:
  explicit LineOrder(std::unique_ptr<icu::Collator> collator);

  int comparePlain(std::string_view a, std::string_view b) const;

  std::unique_ptr<icu::Collator> _collator;
  std::uint8_t _ranks[0x80] = {};  ///< above 0; letters of both cases, and all digits, have one
};

}  // namespace qf
