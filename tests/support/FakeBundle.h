// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "host/Bundle.h"

namespace qf {

/// Resources by their file name ("name.extension"), images by name, texts by key.
class FakeBundle : public Bundle {
 public:
  std::optional<std::filesystem::path> resource(std::string_view name,
                                                std::string_view extension) const override {
    return find(resources, std::string(name).append(".").append(extension));
  }
  std::optional<Image> imageNamed(std::string_view name) const override {
    return find(images, name);
  }
  std::string localizedString(std::string_view key) const override {
    return find(strings, key).value_or(std::string(key));
  }

  template <class T>
  using Table = std::map<std::string, T, std::less<>>;
  Table<std::filesystem::path> resources;
  Table<Image> images;
  Table<std::string> strings;

 private:
  template <class T>
  static std::optional<T> find(const Table<T>& table, std::string_view key) {
    const auto found = table.find(key);
    if (found == table.end()) return std::nullopt;
    return found->second;
  }
};

}  // namespace qf
