// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <string>

#include "foundation/Value.h"

namespace qf::bench {

inline std::string numbered(const char* format, int number) {
  char text[80];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

/// List data as an engine publishes it, with that many cleaners: a library of all of them, and
/// groups of that size.
inline Value listData(int tokens, std::size_t groupSize = 50) {
  Dictionary info;
  Array library;
  Array groups;
  Array names;
  Array group;
  for (int i = 0; i < tokens; ++i) {
    const std::string token = numbered("CLEANER-%06d", i);
    info.set(token, Dictionary{{"name", numbered("Remove the extra blanks, variant %d", i)},
                               {"description", numbered("Takes away the blanks of kind %d & all "
                                                        "that surround them",
                                                        i)}});
    const Value item = Dictionary{{"token", token}, {"hexColor", numbered("#%06x", i * 37)}};
    library.push_back(item);
    group.push_back(item);
    if (group.size() == groupSize || i + 1 == tokens) {
      const std::string name = numbered("Group %d", i / static_cast<int>(groupSize));
      names.emplace_back(name);
      groups.emplace_back(Dictionary{{"name", name}, {"richlist", std::move(group)}});
      group.clear();
    }
  }
  groups.emplace_back(Dictionary{{"name", "Library"}, {"richlist", std::move(library)}});
  return Dictionary{{"^^TEXT-ENCODING^^", Array{"Unicode (UTF-8)", "Western (ISO Latin 1)"}},
                    {"^^TOKENINFO^^", std::move(info)},
                    {"^^AUTOMATIC-NAMES^^", Array{"Library"}},
                    {"^^USERLISTS-NAMES^^", std::move(names)},
                    {"^^MASTER^^", std::move(groups)}};
}

}  // namespace qf::bench
