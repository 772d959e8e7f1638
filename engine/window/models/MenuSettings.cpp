// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/MenuSettings.h"

#include <system_error>

#include "hosts/linux/files/PrivateFiles.h"
#include "kit/DictionaryFile.h"
#include "kit/QFKIdentifiers.h"

namespace qf {

MenuSettings::MenuSettings(const WindowHost& host)
    : _files(host.fileManager),
      _notifications(host.distributedNotificationCenter),
      _container(_files, host.userDefaults),
      _manager(_container, _files, _notifications),
      _observer(_notifications.addObserver(std::string(SharedQFMenuPrefsChangedNotification),
                                           [this] { read(); })) {
  _manager.readSettings();
}

MenuSettings::~MenuSettings() { _notifications.removeObserver(_observer); }

void MenuSettings::read() {
  _manager.readSettings();
  emit changed();
}

std::optional<Error> MenuSettings::putDamagedFileAside() {
  const auto file = QFKSharedContainerURL::QFKMenuSettingsURL(_files);
  std::error_code failure;
  if (!file || !std::filesystem::exists(*file, failure)) return std::nullopt;
  if (dictionaryWithContentsOfURL(_files, file)) return std::nullopt;
  const auto aside = putAside(*file);
  if (!aside) return Error{tr("%1 cannot be read").arg(file->c_str()).toStdString()};
  return Error{tr("The settings could not be read. They were put aside as %1, and new ones begun.")
                   .arg(aside->c_str())
                   .toStdString()};
}

std::optional<Error> MenuSettings::change(const Edit& edit) {
  _files.takeFailure();
  const auto damage = putDamagedFileAside();
  _manager.readSettings();
  edit(_manager);
  const auto failure = _files.takeFailure();
  if (failure) _manager.readSettings();
  emit changed();
  return failure ? failure : damage;
}

}  // namespace qf
