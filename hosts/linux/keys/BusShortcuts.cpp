// SPDX-License-Identifier: Apache-2.0
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QVariantMap>
#include <algorithm>

#include "hosts/linux/keys/DesktopShortcuts.h"

namespace qf {
namespace {

QDBusPendingCall ask(const QDBusConnection& bus, QDBusMessage call, DesktopDeadline deadline) {
  using namespace std::chrono;
  const auto left = duration_cast<milliseconds>(deadline - steady_clock::now()).count();
  call.setAutoStartService(false);
  return bus.asyncCall(call, static_cast<int>(std::max<long long>(left, 1)));
}

/// An error where the call failed.
QDBusMessage answer(QDBusPendingCall call) {
  call.waitForFinished();
  return call.reply();
}

bool isReply(const QDBusMessage& message, const char* signature) {
  return message.type() == QDBusMessage::ReplyMessage && message.signature() == signature;
}

/// The key combinations of a component's actions: of each the seventh of its eight parts, the last
/// being the defaults.
void addKeys(const QDBusMessage& infos, std::vector<Accelerator>& shortcuts) {
  if (!isReply(infos, "a(ssssssaiai)")) return;
  const auto list = infos.arguments().constFirst().value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    QString name;
    QList<int> keys, defaultKeys;
    list.beginStructure();
    for (int part = 0; part < 6; ++part) list >> name;
    list >> keys >> defaultKeys;
    list.endStructure();
    for (const int key : std::as_const(keys)) {
      if (const auto accelerator = acceleratorFromQtKey(key)) shortcuts.push_back(*accelerator);
    }
  }
  list.endArray();
}

/// What "/commands" or "/xfwm4" holds for the user, or, until they changed something, for all.
void addXfceProvider(const QVariantMap& properties, const QString& provider,
                     std::vector<Accelerator>& shortcuts) {
  const QString custom = provider + "/custom/";
  const bool isCustom = properties.value(custom + "override").toBool();
  const QString prefix = isCustom ? custom : provider + "/default/";
  for (auto property = properties.begin(); property != properties.end(); ++property) {
    if (!property.key().startsWith(prefix) || property.value().toString().isEmpty()) continue;
    const QString text = property.key().mid(prefix.size());
    if (const auto accelerator = acceleratorFromGtkText(text.toStdString())) {
      shortcuts.push_back(*accelerator);
    }
  }
}

}  // namespace

DesktopShortcuts kdeShortcuts(const QDBusConnection& bus, DesktopDeadline deadline) {
  const QString service = "org.kde.kglobalaccel";
  const QDBusMessage components =
      answer(ask(bus,
                 QDBusMessage::createMethodCall(service, "/kglobalaccel", "org.kde.KGlobalAccel",
                                                "allComponents"),
                 deadline));
  if (!isReply(components, "ao")) return std::nullopt;
  const auto paths = qdbus_cast<QList<QDBusObjectPath>>(components.arguments().constFirst());
  QList<QDBusPendingCall> asked;
  for (const QDBusObjectPath& path : paths) {
    asked << ask(bus,
                 QDBusMessage::createMethodCall(
                     service, path.path(), "org.kde.kglobalaccel.Component", "allShortcutInfos"),
                 deadline);
  }
  std::vector<Accelerator> shortcuts;
  for (const QDBusPendingCall& call : std::as_const(asked)) addKeys(answer(call), shortcuts);
  return shortcuts;
}

DesktopShortcuts xfceShortcuts(const QDBusConnection& bus, DesktopDeadline deadline) {
  auto call = QDBusMessage::createMethodCall("org.xfce.Xfconf", "/org/xfce/Xfconf",
                                             "org.xfce.Xfconf", "GetAllProperties");
  call << QString("xfce4-keyboard-shortcuts") << QString("/");
  const QDBusMessage reply = answer(ask(bus, call, deadline));
  if (!isReply(reply, "a{sv}")) return std::nullopt;
  const auto properties = qdbus_cast<QVariantMap>(reply.arguments().constFirst());
  std::vector<Accelerator> shortcuts;
  for (const QString provider : {"/commands", "/xfwm4"}) {
    addXfceProvider(properties, provider, shortcuts);
  }
  return shortcuts;
}

}  // namespace qf
