// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/Reasons.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <optional>

namespace qf {
namespace {

// As services, applications that were not reached, and cleaners word them.
// NOLINTBEGIN(bugprone-suspicious-missing-comma): long sentences stand on several lines
constexpr const char* known[] = {
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "no tray on this desktop for the icon; use the palette, or add a tray to a panel"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the engine of Quenfold is not installed; install Quenfold again"),
    QT_TRANSLATE_NOOP("qf::Reasons", "files of Quenfold are missing in %1; install Quenfold again"),
    QT_TRANSLATE_NOOP("qf::Reasons", "another program holds %1; choose other keys here or there"),
    QT_TRANSLATE_NOOP("qf::Reasons", "this keyboard has no key for %1"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the settings file gives it no uuid, or one that is not its key"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server tells nothing of its keyboard"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server closed the connection"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the connection to the X display was lost; log in again"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the connection to the accessibility bus was lost; start the applications "
                      "anew"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the accessibility service does not answer; log out and in again"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "what has the focus there is no text; click into the text first"),
    QT_TRANSLATE_NOOP("qf::Reasons", "its menu copies another text than the selected one"),
    QT_TRANSLATE_NOOP("qf::Reasons", "several cells are selected; clean one cell at a time"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the new text would fill several cells; it is on the clipboard"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "it has opened a window to ask about the new text; answer there"),
    QT_TRANSLATE_NOOP("qf::Reasons", "its menu does not offer that"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "its selection was dropped when the shortcut was pressed; use the palette there"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "it shows its texts to other programs only when it was started with "
                      "--force-renderer-accessibility"),
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
    QT_TRANSLATE_NOOP("qf::Reasons", "The text in %1 cannot be cleaned, because %2"),
    QT_TRANSLATE_NOOP("qf::Reasons", "The text cannot be cleaned, because %1"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it has ended"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it does not answer"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it answers too slowly"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it shows no window on the accessibility bus"),
    QT_TRANSLATE_NOOP("qf::Reasons", "no window of another application has had the input yet"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "it is not on the accessibility bus; where it can be made to use it, start it anew"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it has not copied its text within 1 s"),
    QT_TRANSLATE_NOOP("qf::Reasons", "nothing is selected in it"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it takes no text there; it may be read-only"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is nothing to select in it"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "it offers no Paste to other programs; show its menu bar if it has one, or "
                      "paste there yourself"),
    QT_TRANSLATE_NOOP("qf::Reasons", "its context menu does not offer that"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "nothing is left of it, and its Paste deletes nothing; delete it there"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it refuses to tell its text"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the clipboard could not be taken"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it refuses to select its text"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it refuses to copy"),
    QT_TRANSLATE_NOOP("qf::Reasons", "its menu refuses"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no text on the clipboard"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the text on the clipboard is larger than 256 MiB"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "the application that copied it does not hand over the text on the clipboard"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it refuses the text"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "it has kept the old text too; Undo there takes the new one away"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "it has taken only a part of the new text; the whole is on the clipboard"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "it has refused the new text after it gave up the old one; Undo there brings that back"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "its window has no menu bar with Copy and Paste, and nothing in it has the focus"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "a password field has the focus, which keeps its text to itself"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "the accessibility bus is off; install at-spi2-core, then log out and in again"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the command holds more than 16 MiB of data"),
    QT_TRANSLATE_NOOP("qf::Reasons", "Quenfold is not running; is it installed?"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the session bus did not take the command"),
    QT_TRANSLATE_NOOP("qf::Reasons", "Quenfold is not running any more"),
    QT_TRANSLATE_NOOP("qf::Reasons", "Quenfold ended before it had answered"),
    QT_TRANSLATE_NOOP("qf::Reasons", "Quenfold refused the command: %1"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the application is not installed"),
    QT_TRANSLATE_NOOP("qf::Reasons", "cannot connect to the X server %1"),
    QT_TRANSLATE_NOOP("qf::Reasons", "no X server: DISPLAY is not set"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "No X display: start Quenfold in a desktop session with X11 or XWayland "
                      "(DISPLAY)."),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server lacks the XFIXES extension"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no X display; hot keys work in an X11 session only"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server lacks the XKEYBOARD extension"),
    QT_TRANSLATE_NOOP("qf::Reasons", "the X server does not answer; %1 is not registered"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "another program holds the keyboard: its combinations, and the desktop's, "
                      "cannot be recorded; close its menu or let go of all keys"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "in a Wayland session shortcuts are heard only while an X11 application has "
                      "the input; log in to an X11 session to have them everywhere"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "its window has no menu bar with Copy and Paste, and what has the focus "
                      "there does not offer its text"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "there is no D-Bus session bus; start the programs from a desktop session or "
                      "with dbus-run-session"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "there is no X display; the windows of other applications can be reached in "
                      "an X11 session only"),
    QT_TRANSLATE_NOOP(
        "qf::Reasons",
        "Quenfold did not answer within %1 s; it may still carry out the command later"),
    QT_TRANSLATE_NOOP("qf::Reasons", "%1 cannot be started: %2"),
    QT_TRANSLATE_NOOP("qf::Reasons", "it ended before it appeared on the bus"),
    QT_TRANSLATE_NOOP("qf::Reasons", "%1: %2. The text was left as it is."),
    QT_TRANSLATE_NOOP("qf::Reasons", "the clipboard holds a password or another secret"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no cleaning to undo"),
    QT_TRANSLATE_NOOP("qf::Reasons", "what was copied is not the result of the last cleaning"),
    QT_TRANSLATE_NOOP("qf::Reasons",
                      "the result of the last cleaning stands in this text more than once"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no web address in the text"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no e-mail address in the text"),
    QT_TRANSLATE_NOOP("qf::Reasons", "there is no number in the text"),
    QT_TRANSLATE_NOOP("qf::Reasons", "this is not valid JSON%1"),
    QT_TRANSLATE_NOOP("qf::Reasons", " (line %1, column %2)"),
};
// NOLINTEND(bugprone-suspicious-missing-comma)

/// What stands in the places of "%1" and "%2"; nothing for another text.
std::optional<QStringList> fillings(const QString& text, const QString& pattern) {
  QString form = QRegularExpression::escape(pattern);
  for (const char* place : {"\\%1", "\\%2"}) form.replace(QLatin1String(place), "(.+)");
  const QRegularExpression expression(QRegularExpression::anchoredPattern(form));
  const auto match = expression.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return match.capturedTexts().mid(1);
}

QString lineText(const QString& english) {
  for (const char* pattern : known) {
    const auto parts = fillings(english, pattern);
    if (!parts) continue;
    const QString text = QCoreApplication::translate("qf::Reasons", pattern);
    // One reason may hold another.
    const auto part = [&parts](qsizetype i) { return lineText(parts->value(i)); };
    if (parts->isEmpty()) return text;
    return parts->size() == 1 ? text.arg(part(0)) : text.arg(part(0), part(1));
  }
  return english;
}

}  // namespace

QString reasonText(const QString& english) {
  QStringList lines = english.split('\n');
  for (QString& line : lines) line = lineText(line);
  return lines.join('\n');
}

}  // namespace qf
