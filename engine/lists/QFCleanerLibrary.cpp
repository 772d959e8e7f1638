// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/QFCleanerLibrary.h"

#include "engine/cleaners/CleanerWithArgument.h"
#include "engine/cleaners/CodePoints.h"

namespace qf {

QFCleanerLibrary::QFCleanerLibrary() {
  for (const auto table :
       {styleCleaners, whiteSpaceCleaners, lineCleaners, mailCleaners, punctuationCleaners,
        letterCaseCleaners, unicodeCleaners, webCleaners, extractCleaners, dataCleaners}) {
    for (Cleaner& cleaner : table()) {
      if (cleaner.removesFormatting) _formattingRemovers.emplace(cleaner.token);
      if (cleaner.scope == CleanerScope::line) _byLine.emplace(cleaner.token);
      _builtIn.emplace(cleaner.token, std::move(cleaner.clean));
    }
  }
}

bool QFCleanerLibrary::knows(std::string_view token) const {
  return _builtIn.contains(token) || _custom.contains(token) || cleanerWithArgument(token);
}

Result<std::string> QFCleanerLibrary::clean(std::string_view token, std::string_view bytes) const {
  if (bytes.size() > largestText) return Error{"it is larger than 256 MiB"};
  for (const Cleaners* cleaners : {&_builtIn, &_custom}) {
    const auto found = cleaners->find(token);
    if (found == cleaners->end()) continue;
    return isValidUTF8(bytes) ? found->second(bytes) : found->second(validUTF8(bytes));
  }
  if (const auto clean = cleanerWithArgument(token)) return (*clean)(validUTF8(bytes));
  return Error{"there is no cleaner \"" + std::string(token) + '"'};
}

}  // namespace qf
