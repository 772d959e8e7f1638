// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKInvertedDictionary.h"

#include <algorithm>
#include <iterator>

namespace qf {

std::optional<std::string> QFKInvertedDictionary::objectForKey(const Value& key) const {
  const Dictionary* source = _source ? _source->dictionary() : nullptr;
  if (!source) return std::nullopt;
  const auto last = std::make_reverse_iterator(source->end());
  const auto first = std::make_reverse_iterator(source->begin());
  const auto found =
      std::find_if(last, first, [&key](const auto& entry) { return entry.second == key; });
  if (found == first) return std::nullopt;
  return std::string(found->first);
}

}  // namespace qf
