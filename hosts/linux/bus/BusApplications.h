// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Error.h"
#include "host/Availability.h"
#include "host/Workspace.h"

namespace qf {

class BusApplicationObject;

/// The applications that speak the channel of docs/protocol.md: this process as one of them, and
/// the running instances of any. Main thread.
class BusApplications {
 public:
  /// Exports this process's application object at once; its name is taken by `registerInstance`.
  BusApplications(QDBusConnection bus, std::string_view bundleIdentifier, ActivationPolicy policy);
  ~BusApplications();

  Availability availability() const;
  const QDBusConnection& bus() const { return _bus; }
  /// Never null; lives as long as this.
  BusApplicationObject& object() const { return *_object; }

  enum class Instances {
    one,     ///< fails while another instance runs
    several  ///< waits in the queue behind the others
  };
  /// Makes this process a running instance of its identifier: from now on it is sent events, so set
  /// their handlers first. Blocks at most 1 s.
  std::optional<Error> registerInstance(Instances instances);

  /// Tells the instance that runs already that this one was started. Blocks at most 1 s.
  void reopenRunningInstance() const;

  /// What others see from now on.
  void setActivationPolicy(ActivationPolicy policy);

  /// The running instances in the order in which they started, named by their identifier. Blocks at
  /// most 1 s for the instances, and 1 s more for the bus; of an instance that is too busy to
  /// answer, the bus tells the process, and it counts as one in the background. Where there were
  /// some, they are asked once until the run loop turns or `forgetListed` is called.
  std::vector<RunningApplication> running(std::string_view bundleIdentifier) const;
  /// After it `running` asks anew.
  void forgetListed() const { _isCurrent.clear(); }

  /// The unique bus names behind `running`.
  QStringList owners(std::string_view bundleIdentifier,
                     QDeadlineTimer deadline = QDeadlineTimer(1000)) const;

  struct Instance {
    QString uniqueName;  ///< where messages to it go
    std::int32_t processIdentifier;
    ActivationPolicy policy;
    bool takesHints;
  };
  /// Known once `running` has listed that process.
  std::optional<Instance> instance(std::int32_t processIdentifier) const;
  /// The identifier under which `running` has listed that process.
  std::optional<std::string> bundleIdentifier(std::int32_t processIdentifier) const;

 private:
  std::vector<Instance> instances(std::string_view bundleIdentifier) const;
  std::optional<Instance> describe(const QString& owner, const QDBusPendingCall& properties) const;
  std::int32_t processOf(const QString& owner) const;
  void noteListed(std::string_view bundleIdentifier) const;

  QDBusConnection _bus;
  std::unique_ptr<BusApplicationObject> _object;
  mutable std::map<std::string, std::vector<Instance>, std::less<>> _listed;
  mutable std::set<std::string, std::less<>> _isCurrent;  ///< of what is listed
};

}  // namespace qf
