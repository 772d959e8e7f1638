// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusMessage>
#include <QSet>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiBus.h"
#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/bus/AtspiStates.h"

namespace qf {

/// One road into an application: everything that is asked of it goes through here, until it fails
/// to answer once. Main thread.
class AtspiRequest {
 public:
  /// `bus` outlives this.
  AtspiRequest(AtspiBus& bus, std::int32_t processIdentifier);

  std::int32_t processIdentifier() const { return _processIdentifier; }
  /// Empty when the process is not on the bus.
  const std::vector<AtspiReference>& roots() const { return _roots; }
  bool isRoot(const AtspiReference& object) const;

  /// What one road may wait for answers in all.
  static constexpr std::chrono::seconds roadLimit{15};

  /// False from the first question on that was not answered within the limit, or whose addressee
  /// has gone, or that comes when the road's limit is used up: nothing is sent any more, and every
  /// answer is empty.
  bool isThere() const { return _isThere; }
  /// Ends a sentence that begins with "because".
  const char* whyNotThere() const;

  /// Asks everything at once, as far as the application keeps up, and waits for all the answers,
  /// which come in the order of the questions. An application that answers slowly has few questions
  /// before it at a time, so that each has its own time limit.
  std::vector<QDBusMessage> ask(const std::vector<QDBusMessage>& questions,
                                int limitInMs = AtspiBus::callLimitInMs);
  QDBusMessage ask(const QDBusMessage& question, int limitInMs = AtspiBus::callLimitInMs);
  /// Sends what is not answered by every toolkit.
  void tell(const QDBusMessage& message);

  /// As "gtk" (GTK 3), "GTK" (GTK 4), "Qt"; asked once.
  const QString& toolkit();

  /// Whether the last Copy pressed on this road reached the clipboard; true before the first.
  bool hasCopied() const { return _hasCopied; }
  void setHasCopied(bool hasCopied) { _hasCopied = hasCopied; }

  /// Whether a menu was opened on this road to see whether that item is enabled.
  bool hasOpenedMenuFor(const AtspiReference& item) const { return _openedFor.contains(item); }
  void setHasOpenedMenuFor(const AtspiReference& item) { _openedFor.insert(item); }
  /// What the menus told is no longer so.
  void forgetOpenedMenus() { _openedFor.clear(); }

  std::vector<AtspiReference> children(const AtspiReference& object);
  /// The children of all of them, one after the other.
  std::vector<AtspiReference> children(const std::vector<AtspiReference>& objects);
  AtspiStates states(const AtspiReference& object);

 private:
  AtspiBus& _bus;
  std::int32_t _processIdentifier;
  std::vector<AtspiReference> _roots;
  std::optional<QString> _toolkit;
  bool _isThere;
  std::chrono::steady_clock::duration _waited{};
  bool _hasCopied = true;
  QSet<AtspiReference> _openedFor;
  std::size_t _mostUnderWay;
};

}  // namespace qf
