// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/UserNotice.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"

namespace qf {
namespace {

constexpr int answerLimit = 3000;  // milliseconds

}  // namespace

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

  _bus.send(notification(text, hints, 0));
}

// The desktop tells the number of a notice in its answer: until then only the latest text waits.
void UserNotice::tellInstead(const std::string& text) {
  _next = text;
  if (!_isTelling) tellNext();
}

void UserNotice::tellNext() {
  _isTelling = true;
  const QDBusMessage message = notification(*std::exchange(_next, std::nullopt), {}, _latest);
  auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(message, answerLimit), &_context);
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, &_context, [this, answer] {
    answer->deleteLater();
    const QDBusPendingReply<quint32> reply = *answer;
    if (!reply.isError()) _latest = reply.value();
    _isTelling = false;
    if (_next) tellNext();
  });
}

/// `replaced` is the number of the notice whose place it takes; 0 for none.
QDBusMessage UserNotice::notification(const std::string& text, const QVariantMap& hints,
                                      quint32 replaced) const {
  // Desktops start their notification service on demand, so this call, unlike the others, may.
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.Notifications"),
      QStringLiteral("/org/freedesktop/Notifications"),
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
  constexpr int desktopsOwnTime = -1;
  // Bodies are markup there.
  message << toQString(_applicationName) << replaced << toQString(_iconName)
          << toQString(_applicationName) << toQString(text).toHtmlEscaped() << QStringList()
          << hints << desktopsOwnTime;
  return message;
}

}  // namespace qf
