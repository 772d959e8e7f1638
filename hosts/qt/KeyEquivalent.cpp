// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/KeyEquivalent.h"

#include <utility>

#include "host/EventState.h"
#include "host/Menu.h"

namespace qf {
namespace {

/// Function keys travel as characters of the private area, F1 being the first.
constexpr char16_t firstFunctionKey = 0xF704;
constexpr char16_t lastFunctionKey = 0xF726;

/// Keys that have a glyph, by the words that this desktop has for them.
constexpr std::pair<QChar, const char*> glyphs[] = {
    {u'\u21A9', "Return"}, {u'\u21E5', "Tab"},   {u'\u232B', "Backspace"}, {u'\u238B', "Esc"},
    {u'\u2327', "Clear"},  {u'\u2305', "Enter"}, {u'\u2196', "Home"},      {u'\u21DE', "Page Up"},
    {u'\u2326', "Delete"}, {u'\u2198', "End"},   {u'\u21DF', "Page Down"}, {u'\u2190', "Left"},
    {u'\u2192', "Right"},  {u'\u2193', "Down"},  {u'\u2191', "Up"},        {u' ', "Space"},
};

QString keyName(const QString& key) {
  for (const auto& [glyph, word] : glyphs) {
    if (key == glyph) return word;
  }
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
