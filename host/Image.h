// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

namespace qf {

/// A picture among the program's resources. The host loads and scales it.
struct Image {
  std::string name;
  std::filesystem::path path;
  /// A template is drawn in the colour of its surroundings; only its shape counts.
  bool isTemplate = false;

  bool operator==(const Image&) const = default;
};

}  // namespace qf
