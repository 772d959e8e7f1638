// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/KeyEquivalent.h"

#include <QRegularExpression>
#include <algorithm>
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

/// In the order in which combinations are written.
struct Modifier {
  std::uint64_t mask;
  QChar glyph;
  const char* written;
};
constexpr Modifier modifiers[] = {
    {modifier::control, u'\u2303', "Ctrl+"},
    {modifier::option, u'\u2325', "Alt+"},
    {modifier::shift, u'\u21E7', "Shift+"},
    {modifier::command, u'\u2318', "Super+"},
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

QString combinationAsWritten(QString combination) {
  QString text;
  for (const Modifier& modifier : modifiers) {
    if (!combination.contains(modifier.glyph)) continue;
    text += QLatin1String(modifier.written);
    combination.remove(modifier.glyph);
  }
  return text + (combination.size() == 1 ? keyName(combination) : combination);
}

bool runsFromRightToLeft(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar character) {
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
  });
}

}  // namespace

QString keyEquivalentText(const MenuItem& item) {
  if (item.keyEquivalent.empty()) return {};
  const std::uint64_t mask = item.keyEquivalentModifierMask;
  QString text;
  for (const Modifier& modifier : modifiers) {
    if (mask & modifier.mask) text += QLatin1String(modifier.written);
  }
  const QString key = QString::fromStdString(item.keyEquivalent);
  // A name of several letters ("Space") is not upper-cased.
  return text + (key.size() == 1 ? keyName(key) : key);
}

QString withKeysAsWritten(QString text) {
  static const QRegularExpression combinations(QStringLiteral("[\u2303\u2325\u21E7\u2318]+\\S*"));
  constexpr QChar leftToRightIsolate = u'\u2066', popDirectionalIsolate = u'\u2069';
  const bool isIsolated = runsFromRightToLeft(text);
  qsizetype from = 0;
  for (auto match = combinations.match(text); match.hasMatch();
       match = combinations.match(text, from)) {
    QString written = combinationAsWritten(match.captured());
    if (isIsolated) written = leftToRightIsolate + written + popDirectionalIsolate;
    text.replace(match.capturedStart(), match.capturedLength(), written);
    from = match.capturedStart() + written.size();
  }
  return text;
}

}  // namespace qf
