// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/ServiceNames.h"

#include <QCoreApplication>

namespace qf {
namespace {

struct ServiceName {
  const char* service;
  const char* name;
};
constexpr ServiceName serviceNames[] = {
    {"Accessibility", QT_TRANSLATE_NOOP("qf::ServiceNames", "Text of other applications")},
    {"AppleEvents", QT_TRANSLATE_NOOP("qf::ServiceNames", "Commands between menu and engine")},
    {"CustomFile", QT_TRANSLATE_NOOP("qf::ServiceNames", "Your own cleaners and groups")},
    {"DistributedNotifications", QT_TRANSLATE_NOOP("qf::ServiceNames", "News of changed settings")},
    {"HotKeys", QT_TRANSLATE_NOOP("qf::ServiceNames", "Shortcuts")},
    {"Installation", QT_TRANSLATE_NOOP("qf::ServiceNames", "Installed files")},
    {"KeyboardLayout", QT_TRANSLATE_NOOP("qf::ServiceNames", "Names of keys")},
    {"LatestCommand", QT_TRANSLATE_NOOP("qf::ServiceNames", "Latest command")},
    {"Lists", QT_TRANSLATE_NOOP("qf::ServiceNames", "List of cleaners for the menu")},
    {"Pasteboard", QT_TRANSLATE_NOOP("qf::ServiceNames", "Clipboard")},
    {"StatusBar", QT_TRANSLATE_NOOP("qf::ServiceNames", "Icon in the tray")},
    {"Workspace", QT_TRANSLATE_NOOP("qf::ServiceNames", "Windows and applications")},
};

}  // namespace

QString serviceName(const QString& service) {
  for (const ServiceName& known : serviceNames) {
    if (service == known.service) {
      return QCoreApplication::translate("qf::ServiceNames", known.name);
    }
  }
  return service;
}

}  // namespace qf
