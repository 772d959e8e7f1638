// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/ColorScheme.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <utility>

namespace qf {
namespace {

constexpr char portal[] = "org.freedesktop.portal.Desktop";
constexpr char portalPath[] = "/org/freedesktop/portal/desktop";
constexpr char settings[] = "org.freedesktop.portal.Settings";
constexpr char appearance[] = "org.freedesktop.appearance";
constexpr char colorScheme[] = "color-scheme";
constexpr uint prefersDark = 1;

QPalette darkPalette() {
  const QColor window(0x2b, 0x2d, 0x30), base(0x1f, 0x21, 0x23), text(0xf0, 0xf0, 0xf0);
  const QColor faint(0x8c, 0x8f, 0x93), highlight(0x2f, 0x6f, 0xb5);
  QPalette palette(text, window, window.lighter(150), window.darker(150), window.lighter(120), text,
                   Qt::white, base, window);
  palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x41));
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, highlight);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x7a, 0xb4, 0xf0));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

}  // namespace

ColorScheme::ColorScheme(QDBusConnection bus)
    : _bus(std::move(bus)), _usual(QGuiApplication::palette()) {
  _bus.connect(portal, portalPath, settings, "SettingChanged", this,
               SLOT(settingChanged(QDBusMessage)));
  ask();
}

void ColorScheme::ask() {
  QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, "Read");
  question << appearance << colorScheme;
  auto* call = new QDBusPendingCallWatcher(_bus.asyncCall(question), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *call;
    if (!reply.isError()) follow(reply.value().variant());
  });
}

void ColorScheme::settingChanged(const QDBusMessage& signal) {
  const QVariantList changed = signal.arguments();
  if (changed.value(0) == appearance && changed.value(1) == colorScheme) follow(changed.value(2));
}

void ColorScheme::follow(const QVariant& value) {
  // A signal wraps the value once, the method's answer twice.
  QVariant number = value;
  while (number.userType() == qMetaTypeId<QDBusVariant>()) {
    number = number.value<QDBusVariant>().variant();
  }
  const bool wantsDark = number.toUInt() == prefersDark;
  if (wantsDark == _isDarkened || (wantsDark && isDark(QGuiApplication::palette()))) return;
  _isDarkened = wantsDark;
  QGuiApplication::setPalette(wantsDark ? darkPalette() : _usual);
}

}  // namespace qf
