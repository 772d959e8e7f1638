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
  const QDeadlineTimer deadline(limitInMilliseconds);
  const QStringList all = owners(bundleIdentifier, deadline);
  std::vector<QDBusPendingCall> properties;
  for (const QString& owner : all) {
    QDBusMessage question =
        busCall(owner, bus::applicationPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                QStringLiteral("GetAll"));
    question << QString(bus::applicationInterface);
    properties.push_back(_bus.asyncCall(question, remainingMilliseconds(deadline)));
  }
  std::vector<Instance> found;
  for (std::size_t i = 0; i < properties.size(); ++i)
    if (auto instance = describe(all[static_cast<qsizetype>(i)], properties[i]))
      found.push_back(*std::move(instance));
  return found;
}

/// Nothing where it has left the bus meanwhile.
std::optional<BusApplications::Instance> BusApplications::describe(
    const QString& owner, const QDBusPendingCall& properties) const {
  if (owner == _bus.baseService())  // a process that waits cannot answer itself
    return Instance{owner, _object->processIdentifier(),
                    static_cast<ActivationPolicy>(_object->activationPolicy()),
                    _object->takesHints()};
  QDBusPendingReply<QVariantMap> answer(properties);
  answer.waitForFinished();
  const QVariantMap published = answer.isError() ? QVariantMap() : answer.value();
  int process = published.value(QStringLiteral("ProcessIdentifier")).toInt();
  if (process <= 0) process = processOf(owner);
  if (process <= 0) return std::nullopt;
  return Instance{owner, process,
                  policyFromBus(published.value(QStringLiteral("ActivationPolicy"))),
                  published.value(QStringLiteral("TakesHints")).toBool()};
}

/// As the bus knows it; 0 where it has left the bus.
std::int32_t BusApplications::processOf(const QString& owner) const {
  const QDBusPendingReply<quint32> answer(
      _bus.call(busDaemonCall(QStringLiteral("GetConnectionUnixProcessID"), owner), QDBus::Block,
                limitInMilliseconds));
  return answer.isError() ? 0 : static_cast<std::int32_t>(answer.value());
}

std::vector<RunningApplication> BusApplications::running(std::string_view bundleIdentifier) const {
  std::vector<Instance>& listed = _listed[std::string(bundleIdentifier)];
  if (!_isCurrent.contains(bundleIdentifier)) {
    listed = instances(bundleIdentifier);
    if (!listed.empty()) noteListed(bundleIdentifier);
  }

  std::vector<RunningApplication> applications;
  applications.reserve(listed.size());
  const std::string name(bundleIdentifier.substr(bundleIdentifier.rfind('.') + 1));
  for (const Instance& instance : listed)
    applications.push_back(
        {std::string(bundleIdentifier), name, instance.processIdentifier, instance.policy});
  return applications;
}

void BusApplications::noteListed(std::string_view bundleIdentifier) const {
  if (_isCurrent.empty())
    QMetaObject::invokeMethod(
        _object.get(), [this] { forgetListed(); }, Qt::QueuedConnection);
  _isCurrent.emplace(bundleIdentifier);
}

std::optional<BusApplications::Instance> BusApplications::instance(
    std::int32_t processIdentifier) const {
  for (const auto& [identifier, instances] : _listed)
    for (const Instance& instance : instances)
      if (instance.processIdentifier == processIdentifier) return instance;
  return std::nullopt;
}

std::optional<std::string> BusApplications::bundleIdentifier(std::int32_t processIdentifier) const {
  for (const auto& [identifier, instances] : _listed)
    for (const Instance& instance : instances)
      if (instance.processIdentifier == processIdentifier) return identifier;
  return std::nullopt;
}

}  // namespace qf
