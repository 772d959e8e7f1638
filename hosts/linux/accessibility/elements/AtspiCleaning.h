// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace qf {

class CleanRequest;

/// What holds for every request into an application.
struct AtspiCleaning {
  CleanRequest& request;
  /// Whether the whole text may be taken where nothing is selected.
  std::function<bool()> takesWholeTexts = [] { return true; };
  /// Told a sentence after the whole text was taken, and replaced.
  std::function<void(const std::string&)> wholeTextHandler = [](const std::string&) {};
};

}  // namespace qf
