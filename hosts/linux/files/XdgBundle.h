// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "foundation/StringTable.h"
#include "host/Bundle.h"

namespace qf {

/// Resources in one folder: files as they are, images below "icons", and the string table of each
/// language in "<language>.lproj/Localizable.strings".
class XdgBundle : public Bundle {
 public:
  /// Reads the string table of the first of `userLanguages` that has one.
  explicit XdgBundle(std::filesystem::path resources = resourcesFolder());

  /// The share/quenfold that belongs to the running executable.
  static std::filesystem::path resourcesFolder();

  std::optional<std::filesystem::path> resource(std::string_view name,
                                                std::string_view extension) const override;
  std::optional<Image> imageNamed(std::string_view name) const override;
  std::string localizedString(std::string_view key) const override {
    return _strings.localized(key);
  }

 private:
  StringTable readStrings() const;

  std::filesystem::path _resources;
  StringTable _strings;
};

}  // namespace qf
