// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/BusApplications.h"

#include <unistd.h>

#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <utility>

#include "hosts/linux/bus/BusApplicationObject.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"

namespace qf {
namespace {

constexpr int limitInMilliseconds = 1000;

// Flags and answers of RequestName, as the D-Bus protocol defines them.
constexpr quint32 doNotQueue = 4;
constexpr quint32 primaryOwner = 1;
constexpr quint32 inQueue = 2;
constexpr quint32 alreadyOwner = 4;

int remainingMilliseconds(const QDeadlineTimer& deadline) {
  return std::max(1, static_cast<int>(deadline.remainingTime()));
}

ActivationPolicy policyFromBus(const QVariant& value) {
  bool isNumber = false;
  const int number = value.toInt(&isNumber);
  if (isNumber && number == static_cast<int>(ActivationPolicy::regular))
    return ActivationPolicy::regular;
  return ActivationPolicy::accessory;
}

}  // namespace

BusApplications::BusApplications(QDBusConnection bus, std::string_view bundleIdentifier,
                                 ActivationPolicy policy)
    : _bus(std::move(bus)),
      _object(std::make_unique<BusApplicationObject>(toQString(bundleIdentifier), getpid(),
                                                     static_cast<int>(policy))) {
  takeLargeMessages(_bus);
  _bus.registerObject(
      bus::applicationPath, _object.get(),
      QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableProperties);
}

BusApplications::~BusApplications() { _bus.unregisterObject(bus::applicationPath); }

Availability BusApplications::availability() const { return busAvailability(_bus); }

std::optional<Error> BusApplications::registerInstance(Instances instances) {
  if (const Availability state = availability(); !state.isAvailable) return Error{state.reason};

  QDBusMessage request = busDaemonCall(QStringLiteral("RequestName"), _object->bundleIdentifier());
  request << (instances == Instances::one ? doNotQueue : 0U);
  const QDBusPendingReply<quint32> reply(_bus.call(request, QDBus::Block, limitInMilliseconds));
  if (reply.isError()) return Error{reply.error().message().toStdString()};

  const quint32 answer = reply.value();
  if (answer == primaryOwner || answer == inQueue || answer == alreadyOwner) return std::nullopt;
  return Error{_object->bundleIdentifier().toStdString() + " runs already"};
}

void BusApplications::reopenRunningInstance() const {
  const QDBusMessage reopen = busCall(_object->bundleIdentifier(), bus::applicationPath,
                                      bus::applicationInterface, QStringLiteral("Reopen"));
  _bus.call(reopen, QDBus::Block, limitInMilliseconds);
}

void BusApplications::setActivationPolicy(ActivationPolicy policy) {
  _object->setActivationPolicy(static_cast<int>(policy));
}

QStringList BusApplications::owners(std::string_view bundleIdentifier,
                                    QDeadlineTimer deadline) const {
  const QDBusPendingReply<QStringList> reply(
      _bus.call(busDaemonCall(QStringLiteral("ListQueuedOwners"), toQString(bundleIdentifier)),
                QDBus::Block, remainingMilliseconds(deadline)));
  return reply.isError() ? QStringList() : reply.value();
}

std::vector<BusApplications::Instance> BusApplications::instances(
    std::string_view bundleIdentifier) const {
  struct Question {
    QString uniqueName;
    QDBusPendingReply<QVariantMap> properties;
    QDBusPendingReply<quint32> process;
  };

  const QDeadlineTimer deadline(limitInMilliseconds);
  std::vector<Question> questions;
  for (const QString& owner : owners(bundleIdentifier, deadline)) {
    if (owner == _bus.baseService()) {
      questions.push_back({owner, {}, {}});
      continue;
    }
    QDBusMessage properties =
        busCall(owner, bus::applicationPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                QStringLiteral("GetAll"));
    properties << QString(bus::applicationInterface);
    const QDBusMessage process = busDaemonCall(QStringLiteral("GetConnectionUnixProcessID"), owner);
    const int limit = remainingMilliseconds(deadline);
    questions.push_back({owner, _bus.asyncCall(properties, limit), _bus.asyncCall(process, limit)});
  }

  std::vector<Instance> found;
  for (Question& question : questions) {
    if (question.uniqueName == _bus.baseService()) {
      found.push_back({question.uniqueName, _object->processIdentifier(),
                       static_cast<ActivationPolicy>(_object->activationPolicy())});
      continue;
    }
    question.process.waitForFinished();
    question.properties.waitForFinished();
    if (question.process.isError()) continue;  // it has left the bus meanwhile
    const QVariantMap published =
        question.properties.isError() ? QVariantMap() : question.properties.value();
    int processIdentifier = published.value(QStringLiteral("ProcessIdentifier")).toInt();
    if (processIdentifier <= 0) processIdentifier = static_cast<int>(question.process.value());
    found.push_back({question.uniqueName, processIdentifier,
                     policyFromBus(published.value(QStringLiteral("ActivationPolicy")))});
  }
  return found;
}

std::vector<RunningApplication> BusApplications::running(std::string_view bundleIdentifier) const {
  std::vector<Instance>& listed = _listed[std::string(bundleIdentifier)];
  listed = instances(bundleIdentifier);

  std::vector<RunningApplication> applications;
  applications.reserve(listed.size());
  const std::string name(bundleIdentifier.substr(bundleIdentifier.rfind('.') + 1));
  for (const Instance& instance : listed)
    applications.push_back(
        {std::string(bundleIdentifier), name, instance.processIdentifier, instance.policy});
  return applications;
}

std::optional<QString> BusApplications::uniqueName(std::int32_t processIdentifier) const {
  for (const auto& [identifier, instances] : _listed)
    for (const Instance& instance : instances)
      if (instance.processIdentifier == processIdentifier) return instance.uniqueName;
  return std::nullopt;
}

std::optional<std::string> BusApplications::bundleIdentifier(std::int32_t processIdentifier) const {
  for (const auto& [identifier, instances] : _listed)
    for (const Instance& instance : instances)
      if (instance.processIdentifier == processIdentifier) return identifier;
  return std::nullopt;
}

}  // namespace qf
