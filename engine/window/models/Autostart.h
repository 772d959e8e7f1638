// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "foundation/Error.h"

namespace qf {

/// Whether the agent starts with the session, by the Desktop Application Autostart standard: an
/// entry in the person's autostart folder overrides the system's of the same name, and says with
/// `Hidden` that nothing is to start. Keeps nothing: each call looks at the files.
class Autostart {
 public:
  struct Places {
    std::filesystem::path own;                   ///< the person's entry, there or not; or empty
    std::vector<std::filesystem::path> systems;  ///< the same entry elsewhere, the first one counts
    std::filesystem::path pattern;               ///< what a new entry holds
  };
  /// In the folders of the environment; the pattern is among the program's resources.
  static Places usualPlaces(const std::filesystem::path& pattern);

  explicit Autostart(Places places) : _places(std::move(places)) {}

  bool isOn() const;
  /// Whether the person has decided against it: without a decision an installed entry may be
  /// absent.
  bool isSwitchedOff() const;
  /// Other lines of an entry that is there already stay as they are, and so does its command while
  /// the program of that is there. Fails where the person has no folder for it.
  [[nodiscard]] std::optional<Error> setOn(bool isOn) const;

 private:
  Places _places;
};

}  // namespace qf
