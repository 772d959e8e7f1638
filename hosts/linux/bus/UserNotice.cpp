// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/UserNotice.h"

#include <QDBusMessage>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"

namespace qf {

UserNotice::UserNotice(QDBusConnection bus, std::string applicationName, std::string iconName)
    : _bus(std::move(bus)),
      _applicationName(std::move(applicationName)),
      _iconName(std::move(iconName)) {}

bool UserNotice::wasToldRecently(const std::string& text, Clock::time_point now) {
  std::erase_if(_told, [now](const Told& told) { return now - told.when >= quietTime; });
  return std::any_of(_told.begin(), _told.end(),
                     [&text](const Told& told) { return told.text == text; });
}

void UserNotice::tell(const std::string& text, Clock::time_point now) { send(text, {}, now); }

void UserNotice::tellQuietly(const std::string& text, Clock::time_point now) {
  constexpr uchar lowUrgency = 0;
  const QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(lowUrgency)},
                          {QStringLiteral("transient"), true}};
  send(text, hints, now);
}

void UserNotice::send(const std::string& text, const QVariantMap& hints, Clock::time_point now) {
  if (wasToldRecently(text, now)) return;
  _told.push_back({text, now});

  // Desktops start their notification service on demand, so this call, unlike the others, may.
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.Notifications"),
      QStringLiteral("/org/freedesktop/Notifications"),
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
  constexpr quint32 replacesNone = 0;
  constexpr int desktopsOwnTime = -1;
  // Bodies are markup there.
  message << toQString(_applicationName) << replacesNone << toQString(_iconName)
          << toQString(_applicationName) << toQString(text).toHtmlEscaped() << QStringList()
          << hints << desktopsOwnTime;
  _bus.send(message);
}

}  // namespace qf
