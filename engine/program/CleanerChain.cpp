// SPDX-License-Identifier: Apache-2.0
#include "engine/program/CleanerChain.h"

#include <algorithm>

#include "engine/lists/QFCleanerLibrary.h"

namespace qf {

Result<std::string> CleanerChain::clean(std::string_view bytes) const {
  Result<std::string> result = std::string();
  for (const std::string& token : _tokens) {
    result = _library.clean(token, &token == &_tokens.front() ? bytes : *result);
    if (!result) return Error{_nameOf(token) + ": " + result.error().localizedDescription};
  }
  return result;
}

bool CleanerChain::worksByLine() const {
  return std::all_of(_tokens.begin(), _tokens.end(),
                     [this](const std::string& token) { return _library.worksByLine(token); });
}

}  // namespace qf
