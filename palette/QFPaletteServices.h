// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "host/ServicesMenu.h"

namespace qf {

/// Answers requests of other applications. They are accepted and logged, and change nothing:
/// selected text is cleaned through menu, hot keys and palette. Main thread.
class QFPaletteServices : public ServicesProvider {
 public:
  void doPaletteCleaner(Pasteboard* pasteboard, const std::string& userData,
                        std::optional<std::string>& error) override;
  void cleanText(Pasteboard* pasteboard, const std::string& userData,
                 std::optional<std::string>& error) override;
  /// Shared by both; does nothing.
  virtual void doCleaner(Pasteboard*, const std::string&, std::optional<std::string>&) {}

  /// The token that the next request should apply; empty for none.
  const std::optional<std::string>& lastCleanerClicked() const { return _lastCleanerClicked; }
  void setLastCleanerClicked(std::optional<std::string> token) {
    _lastCleanerClicked = std::move(token);
  }

 private:
  std::optional<std::string> _lastCleanerClicked = "";
};

}  // namespace qf
