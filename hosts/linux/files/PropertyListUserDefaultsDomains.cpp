// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"

#include "hosts/linux/files/XdgFolders.h"

namespace qf {

PropertyListUserDefaultsDomains::PropertyListUserDefaultsDomains(std::string_view programIdentifier)
    : _standard(domain(programIdentifier)) {}

std::unique_ptr<UserDefaults> PropertyListUserDefaultsDomains::suite(std::string_view suiteName) {
  return std::make_unique<PropertyListUserDefaults>(domain(suiteName));
}

std::shared_ptr<PropertyListDomain> PropertyListUserDefaultsDomains::domain(std::string_view name) {
  auto& known = _domains[std::string(name)];
  if (!known) {
    auto file = xdgConfigHome();
    if (file) *file /= std::string(name) + ".plist";
    known = std::make_shared<PropertyListDomain>(std::move(file));
  }
  return known;
}

}  // namespace qf
