// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QPoint>
#include <QRect>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace qf::desktop {

/// A node of the accessibility tree as a screen reader would see it, read plainly and anew at every
/// call. Written apart from the agent's own way into applications, which it is used to check.
class Accessible {
 public:
  using Predicate = std::function<bool(const Accessible&)>;

  /// The desktop node, whose children are the applications.
  static Accessible desktop();
  static std::optional<Accessible> application(qint64 processIdentifier);
  /// What the application shows under that name, in that role if one is given.
  static std::optional<Accessible> showing(qint64 processIdentifier, const QString& name,
                                           const QString& role = {});

  QString name() const;
  QString role() const;
  QString description() const;
  /// By which the bus knows it: sender and path of what it says.
  QString address() const { return _service + _path; }
  bool hasState(int state) const;
  bool isShowing() const;
  bool isEnabled() const;
  QRect screenExtents() const;
  std::vector<Accessible> children() const;
  qint64 processIdentifier() const;

  /// The first match below this node, depth first; menus that are not showing are looked at too.
  std::optional<Accessible> find(const Predicate& predicate) const;

  QString text() const;
  bool setText(const QString& text) const;
  bool select(int from, int to) const;
  int selectionCount() const;
  /// Does the first thing that can be done with it.
  bool press() const;

 private:
  Accessible(QString service, QString path)
      : _service(std::move(service)), _path(std::move(path)) {}

  QVariant call(const QString& interface, const QString& method,
                const QVariantList& arguments = {}) const;
  QVariant property(const QString& interface, const QString& name) const;

  QString _service;
  QString _path;
};

}  // namespace qf::desktop
