// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/KeyEquivalent.h"

#include "host/EventState.h"
#include "host/Menu.h"

namespace qf {
namespace {

/// Function keys travel as characters of the private area, F1 being the first.
constexpr char16_t firstFunctionKey = 0xF704;
constexpr char16_t lastFunctionKey = 0xF726;

QString keyName(const QString& key) {
  if (key == " ") return "Space";
  const char16_t character = key.size() == 1 ? key.at(0).unicode() : u'\0';
  if (character >= firstFunctionKey && character <= lastFunctionKey) {
    return "F" + QString::number(character - firstFunctionKey + 1);
  }
  return key.toUpper();
}

}  // namespace

QString keyEquivalentText(const MenuItem& item) {
  if (item.keyEquivalent.empty()) return {};
  const std::uint64_t mask = item.keyEquivalentModifierMask;
  QString text;
  if (mask & modifier::control) text += "Ctrl+";
  if (mask & modifier::option) text += "Alt+";
  if (mask & modifier::shift) text += "Shift+";
  if (mask & modifier::command) text += "Super+";
  const QString key = QString::fromStdString(item.keyEquivalent);
  // A name of several letters ("Space") is not upper-cased.
  return text + (key.size() == 1 ? keyName(key) : key);
}

}  // namespace qf
