// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/ProcessUsage.h"

#include <xcb/res.h>
#include <xcb/xcb.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <memory>

namespace qf::desktop {
namespace {

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
Reply<T> owned(T* reply) {
  return {reply, &std::free};
}

qint64 residentKilobytes(const QString& process) {
  QFile file(process + "/status");
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (line.startsWith("VmRSS:")) return line.simplified().split(' ').value(1).toLongLong();
  }
  return 0;
}

qint64 resourcesOfClient(xcb_connection_t* connection, std::uint32_t client) {
  const auto reply = owned(xcb_res_query_client_resources_reply(
      connection, xcb_res_query_client_resources(connection, client), nullptr));
  if (!reply) return 0;
  qint64 count = 0;
  for (auto type = xcb_res_query_client_resources_types_iterator(reply.get()); type.rem > 0;
       xcb_res_type_next(&type)) {
    count += type.data->count;
  }
  return count;
}

qint64 xResources(qint64 processIdentifier) {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const xcb_res_client_id_spec_t everyone{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
  const auto reply = owned(xcb_res_query_client_ids_reply(
      connection, xcb_res_query_client_ids(connection, 1, &everyone), nullptr));
  qint64 count = 0;
  if (reply) {
    for (auto id = xcb_res_query_client_ids_ids_iterator(reply.get()); id.rem > 0;
         xcb_res_client_id_value_next(&id)) {
      if (xcb_res_client_id_value_value_length(id.data) > 0 &&
          *xcb_res_client_id_value_value(id.data) == processIdentifier) {
        count += resourcesOfClient(connection, id.data->spec.client);
      }
    }
  }
  xcb_disconnect(connection);
  return count;
}

qint64 matchRules(const QDBusConnection& bus, qint64 processIdentifier) {
  QDBusConnectionInterface* daemon = bus.interface();
  QDBusInterface statistics("org.freedesktop.DBus", "/org/freedesktop/DBus",
                            "org.freedesktop.DBus.Debug.Stats", bus);
  qint64 count = 0;
  for (const QString& name : daemon->registeredServiceNames().value()) {
    if (!name.startsWith(':') || daemon->servicePid(name).value() != processIdentifier) continue;
    const QDBusReply<QVariantMap> reply = statistics.call("GetConnectionStats", name);
    count += reply.value().value("MatchRules").toLongLong();
  }
  return count;
}

QDBusConnection accessibilityBus() {
  static const QDBusConnection bus = [] {
    QDBusInterface launcher("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
    const QDBusReply<QString> address = launcher.call("GetAddress");
    return QDBusConnection::connectToBus(address.value(), "usage");
  }();
  return bus;
}

}  // namespace

ProcessUsage ProcessUsage::of(qint64 processIdentifier) {
  const QString process = QString("/proc/%1").arg(processIdentifier);
  return {qf::desktop::residentKilobytes(process),
          QDir(process + "/fd")
              .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
              .size(),
          qf::desktop::xResources(processIdentifier),
          qf::desktop::matchRules(QDBusConnection::sessionBus(), processIdentifier) +
              qf::desktop::matchRules(accessibilityBus(), processIdentifier)};
}

QString ProcessUsage::growthSince(const ProcessUsage& earlier) const {
  QString grown;
  const auto compare = [&](const char* what, qint64 now, qint64 before, qint64 noise) {
    if (now > before + noise)
      grown += QString("%1 grew from %2 to %3; ").arg(what).arg(before).arg(now);
  };
  compare("memory (kB)", residentKilobytes, earlier.residentKilobytes,
          8192 + earlier.residentKilobytes / 10);
  compare("descriptors", descriptors, earlier.descriptors, 8);
  compare("X resources", xResources, earlier.xResources, 20);
  compare("match rules", matchRules, earlier.matchRules, 10);
  return grown;
}

QString ProcessUsage::text() const {
  return QString("%1 kB, %2 descriptors, %3 X resources, %4 match rules")
      .arg(residentKilobytes)
      .arg(descriptors)
      .arg(xResources)
      .arg(matchRules);
}

}  // namespace qf::desktop
