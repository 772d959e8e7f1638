// SPDX-License-Identifier: Apache-2.0
#include "palette/QFPaletteServices.h"

#include "foundation/Log.h"

namespace qf {

void QFPaletteServices::doPaletteCleaner(Pasteboard* pasteboard, const std::string& /*userData*/,
                                         std::optional<std::string>& error) {
  log("doPaletteCleaner called.");
  log("lastCleanerClicked = " + _lastCleanerClicked.value_or("(null)"));
  if (_lastCleanerClicked && !_lastCleanerClicked->empty()) {
    doCleaner(pasteboard, *_lastCleanerClicked, error);
  }
  _lastCleanerClicked = "";
}

void QFPaletteServices::cleanText(Pasteboard* pasteboard, const std::string& userData,
                                  std::optional<std::string>& error) {
  doCleaner(pasteboard, userData, error);
}

}  // namespace qf
