// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/FileManager.h"

namespace qf {

/// The folder of an application group lies under its identifier in the user's data folder.
class XdgFileManager : public FileManager {
 public:
  std::optional<std::filesystem::path> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const override;
  std::optional<Error> createDirectory(const std::filesystem::path& path) override;
  std::optional<Data> contents(const std::filesystem::path& path) const override;
  std::optional<Error> write(const std::filesystem::path& path,
                             std::span<const std::uint8_t> data) override;
};

}  // namespace qf
