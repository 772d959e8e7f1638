// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/reach/AtspiPastedText.h"

class QDBusMessage;

namespace qf {

class AtspiRequest;
class AtspiBus;
class AtspiMenuTree;

/// What is kept of a window from one request to the next.
struct AtspiWindow {
  AtspiReference object;
  AtspiReference focused;  ///< null before the focus was seen there
  std::shared_ptr<AtspiMenuTree> menuTree;
  std::optional<AtspiPastedText> pasted = std::nullopt;
};

/// The windows of all applications, by when each had the input last. While a menu of our own is
/// open or a hot key is held no window of the target says that it is active: then this knows.
/// Main thread.
class AtspiWindows : public QObject {
  Q_OBJECT

 public:
  /// `bus` outlives this, and has no other handler of its connection.
  explicit AtspiWindows(AtspiBus& bus);

  struct Choice {
    std::shared_ptr<AtspiWindow> window;  ///< null where there is none
    bool isActive = false;
  };
  /// The application's window that is active, else the one that was active last, else the first
  /// that shows.
  Choice inputWindow(AtspiRequest& application);

 private slots:
  void windowGotOrLostInput(const QDBusMessage& event);

 private:
  void listen(AtspiBus& bus);
  void noteActive(const AtspiReference& window);
  std::size_t rank(const AtspiReference& window) const;
  std::shared_ptr<AtspiWindow> window(const AtspiReference& object);

  std::vector<std::shared_ptr<AtspiWindow>> _latestFirst;
};

}  // namespace qf
