// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include "hosts/linux/files/PropertyListUserDefaults.h"

namespace qf {

/// Each domain is the file of its name, with the extension "plist", in the user's configuration
/// folder.
class PropertyListUserDefaultsDomains : public UserDefaultsDomains {
 public:
  explicit PropertyListUserDefaultsDomains(std::string_view programIdentifier);

  UserDefaults& standardUserDefaults() override { return _standard; }
  std::unique_ptr<UserDefaults> suite(std::string_view suiteName) override;

 private:
  std::shared_ptr<PropertyListDomain> domain(std::string_view name);

  std::map<std::string, std::shared_ptr<PropertyListDomain>, std::less<>> _domains;
  PropertyListUserDefaults _standard;
};

}  // namespace qf
