// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/StoredSwitch.h"

#include <QCoreApplication>
#include <utility>

#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "hosts/qt/QtText.h"

namespace qf {

StoredSwitch::StoredSwitch(std::string domain, std::string key)
    : _domain(std::move(domain)), _key(std::move(key)) {}

bool StoredSwitch::isOn() const {
  PropertyListUserDefaultsDomains domains(_domain);
  const auto value = domains.standardUserDefaults().objectForKey(_key);
  return value && value->boolValue();
}

std::optional<Error> StoredSwitch::setOn(bool isOn) const {
  PropertyListUserDefaultsDomains domains(_domain);
  domains.standardUserDefaults().setObject(isOn, _key);
  if (this->isOn() == isOn) return std::nullopt;
  return Error{QCoreApplication::translate("qf::StoredSwitch",
                                           "The settings %1.plist could not be written. See "
                                           "that you may write in your configuration folder.")
                   .arg(toQString(_domain))
                   .toStdString()};
}

}  // namespace qf
