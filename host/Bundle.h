// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "host/Image.h"

namespace qf {

/// The running program's own resources. Main thread.
class Bundle {
 public:
  virtual ~Bundle() = default;

  /// The resource's path, or nothing for an unknown name.
  virtual std::optional<std::filesystem::path> resource(std::string_view name,
                                                        std::string_view extension) const = 0;

  /// The image of that name, in any image format.
  virtual std::optional<Image> imageNamed(std::string_view name) const = 0;

  /// The text for the key in the user's language, from the default string table; the key itself
  /// where the table has none. The key is the English text.
  virtual std::string localizedString(std::string_view key) const = 0;
};

}  // namespace qf
