// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace qf {

/// Tells the person something through the desktop's notifications. Main thread.
class UserNotice {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::seconds quietTime{30};

  /// `applicationName` heads each notice; `iconName` is a name of the icon theme, or a path.
  UserNotice(QDBusConnection bus, std::string applicationName, std::string iconName);

  /// Returns at once. The same text within `quietTime` of its last telling is not told again.
  void tell(const std::string& text, Clock::time_point now = Clock::now());
  /// The same of something that went as it should: desktops show it briefly, and keep no record.
  void tellQuietly(const std::string& text, Clock::time_point now = Clock::now());
  /// Returns at once. Takes the place of what was told so before, and is always told.
  void tellInstead(const std::string& text);

 private:
  struct Told {
    std::string text;
    Clock::time_point when;
  };

  void send(const std::string& text, const QVariantMap& hints, Clock::time_point now);
  bool wasToldRecently(const std::string& text, Clock::time_point now);
  QDBusMessage notification(const std::string& text, const QVariantMap& hints,
                            quint32 replaced) const;
  void tellNext();

  QDBusConnection _bus;
  std::string _applicationName;
  std::string _iconName;
  std::vector<Told> _told;
  quint32 _latest = 0;  ///< the desktop's number of what was last told instead
  std::optional<std::string> _next;
  bool _isTelling = false;
  QObject _context;  ///< the desktop's answers end with it
};

}  // namespace qf
