// SPDX-License-Identifier: Apache-2.0
#include "engine/window/Reasons.h"

#include <QCoreApplication>
#include <optional>

namespace qf {
namespace {

// As services and cleaners word them.
constexpr const char* known[] = {
    QT_TRANSLATE_NOOP("qf::Reasons", "no tray on this desktop"),
    QT_TRANSLATE_NOOP("qf::Reasons", "another program holds %1; choose other keys here or there"),
    QT_TRANSLATE_NOOP("qf::Reasons", "this keyboard has no key for %1"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server tells nothing of its keyboard"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server closed the connection"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the connection to the X display was lost; log in again"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the connection to the accessibility bus was lost; start the program anew"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the accessibility bus refuses connections: %1"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the connection to the D-Bus session bus was lost; log out and in again"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "no window manager here tells which window is active; start one that knows "
                      "_NET_ACTIVE_WINDOW"),
    QT_TRANSLATE_NOOP("qf::Reasons", "The list of cleaners could not be published: %1"),
    QT_TRANSLATE_NOOP("qf::Reasons", "finding took too long"),
    QT_TRANSLATE_NOOP("qf::Reasons", "finding took too much memory"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the result is too large"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the replacement names a group that the expression has not"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it cannot be read"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it cannot be read as Markdown"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it is no Base64"),
    QT_TRANSLATE_NOOP("qf::Reasons", "its elements are nested too deeply"),
};

/// What stands in the place of "%1"; empty where there is none. Nothing for another text.
std::optional<QString> filling(const QString& text, const QString& pattern) {
  const qsizetype place = pattern.indexOf("%1");
  if (place < 0) return text == pattern ? std::optional(QString()) : std::nullopt;
  const QString before = pattern.left(place), behind = pattern.mid(place + 2);
  if (!text.startsWith(before) || !text.endsWith(behind)) return std::nullopt;
  return text.mid(place, text.size() - before.size() - behind.size());
}

}  // namespace

QString reasonText(const QString& english) {
  for (const char* pattern : known) {
    const auto part = filling(english, pattern);
    if (!part) continue;
    const QString text = QCoreApplication::translate("qf::Reasons", pattern);
    return part->isEmpty() ? text : text.arg(*part);
  }
  return english;
}

}  // namespace qf
