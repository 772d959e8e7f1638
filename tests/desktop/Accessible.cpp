// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Accessible.h"

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace qf::desktop {
namespace {

constexpr int callLimitInMs = 3000;
const QString accessibleInterface = "org.a11y.atspi.Accessible";
const QString textInterface = "org.a11y.atspi.Text";

QDBusConnection& accessibilityBus() {
  static QDBusConnection bus = [] {
    QDBusInterface locator("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
    const QDBusReply<QString> address = locator.call("GetAddress");
    return QDBusConnection::connectToBus(address.value(), "desktop-tests");
  }();
  return bus;
}

}  // namespace

Accessible Accessible::desktop() {
  return {"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
}

std::optional<Accessible> Accessible::application(qint64 processIdentifier) {
  for (const Accessible& application : desktop().children()) {
    if (application.processIdentifier() == processIdentifier) return application;
  }
  return std::nullopt;
}

std::optional<Accessible> Accessible::showing(qint64 processIdentifier, const QString& name,
                                              const QString& role) {
  const auto application = Accessible::application(processIdentifier);
  if (!application) return std::nullopt;
  return application->find([&](const Accessible& node) {
    return node.name().trimmed() == name && (role.isEmpty() || node.role() == role) &&
           node.isShowing();
  });
}

QVariant Accessible::call(const QString& interface, const QString& method,
                          const QVariantList& arguments) const {
  auto message = QDBusMessage::createMethodCall(_service, _path, interface, method);
  message.setArguments(arguments);
  const QDBusMessage reply = accessibilityBus().call(message, QDBus::Block, callLimitInMs);
  return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

QVariant Accessible::property(const QString& interface, const QString& name) const {
  const QVariant answer = call("org.freedesktop.DBus.Properties", "Get", {interface, name});
  return answer.value<QDBusVariant>().variant();
}

QString Accessible::name() const { return property(accessibleInterface, "Name").toString(); }
QString Accessible::description() const {
  return property(accessibleInterface, "Description").toString();
}
QString Accessible::role() const { return call(accessibleInterface, "GetRoleName").toString(); }

bool Accessible::hasState(int state) const {
  const QVariant answer = call(accessibleInterface, "GetState");
  if (!answer.canConvert<QDBusArgument>()) return false;
  const auto words = qdbus_cast<QList<uint>>(answer);
  return state / 32 < words.size() && (words[state / 32] >> (state % 32) & 1U) != 0;
}

bool Accessible::isShowing() const {
  constexpr int showing = 25;
  return hasState(showing);
}

bool Accessible::isEnabled() const {
  constexpr int enabled = 8;
  return hasState(enabled);
}

QRect Accessible::screenExtents() const {
  constexpr uint screenCoordinates = 0;
  const QVariant answer =
      call("org.a11y.atspi.Component", "GetExtents", {QVariant::fromValue(screenCoordinates)});
  if (!answer.canConvert<QDBusArgument>()) return {};
  const auto argument = answer.value<QDBusArgument>();
  int x = 0, y = 0, width = 0, height = 0;
  argument.beginStructure();
  argument >> x >> y >> width >> height;
  argument.endStructure();
  return {x, y, width, height};
}

std::vector<Accessible> Accessible::children() const {
  std::vector<Accessible> result;
  const QVariant answer = call(accessibleInterface, "GetChildren");
  if (!answer.canConvert<QDBusArgument>()) return result;
  const auto argument = answer.value<QDBusArgument>();
  argument.beginArray();
  while (!argument.atEnd()) {
    QString service;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> service >> path;
    argument.endStructure();
    result.push_back(Accessible(service, path.path()));
  }
  argument.endArray();
  return result;
}

qint64 Accessible::processIdentifier() const {
  auto message = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                                "GetConnectionUnixProcessID");
  message.setArguments({_service});
  return accessibilityBus()
      .call(message, QDBus::Block, callLimitInMs)
      .arguments()
      .value(0)
      .toLongLong();
}

std::optional<Accessible> Accessible::find(const Predicate& predicate) const {
  for (const Accessible& child : children()) {
    if (predicate(child)) return child;
    if (auto found = child.find(predicate)) return found;
  }
  return std::nullopt;
}

QString Accessible::text() const { return call(textInterface, "GetText", {0, -1}).toString(); }

bool Accessible::setText(const QString& text) const {
  return call("org.a11y.atspi.EditableText", "SetTextContents", {text}).toBool();
}

bool Accessible::select(int from, int to) const {
  if (call(textInterface, "AddSelection", {from, to}).toBool()) return true;
  return call(textInterface, "SetSelection", {0, from, to}).toBool();
}

bool Accessible::press() const { return call("org.a11y.atspi.Action", "DoAction", {0}).toBool(); }

int Accessible::selectionCount() const { return call(textInterface, "GetNSelections").toInt(); }

}  // namespace qf::desktop
