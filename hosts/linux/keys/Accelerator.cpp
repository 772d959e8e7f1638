// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/Accelerator.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <Qt>
#include <iterator>
#include <utility>

#include "foundation/Text.h"
#include "host/HotKeys.h"

namespace qf {
namespace {

constexpr std::pair<const char*, std::uint32_t> gtkModifiers[] = {
    {"primary", hotKeyModifier::control},
    {"control", hotKeyModifier::control},
    {"ctrl", hotKeyModifier::control},
    {"ctl", hotKeyModifier::control},
    {"shift", hotKeyModifier::shift},
    {"shft", hotKeyModifier::shift},
    {"alt", hotKeyModifier::option},
    {"mod1", hotKeyModifier::option},
    {"super", hotKeyModifier::command},
    {"mod4", hotKeyModifier::command},
    {"release", 0},
};

constexpr std::pair<int, xkb_keysym_t> qtKeys[] = {
    {Qt::Key_Escape, XKB_KEY_Escape},    {Qt::Key_Tab, XKB_KEY_Tab},
    {Qt::Key_Backtab, XKB_KEY_Tab},      {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Return, XKB_KEY_Return},    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Insert, XKB_KEY_Insert},    {Qt::Key_Delete, XKB_KEY_Delete},
    {Qt::Key_Home, XKB_KEY_Home},        {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},        {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Right, XKB_KEY_Right},      {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_PageUp, XKB_KEY_Page_Up},   {Qt::Key_PageDown, XKB_KEY_Page_Down},
    {Qt::Key_NumLock, XKB_KEY_Num_Lock}, {Qt::Key_Help, XKB_KEY_Help},
};

std::uint32_t symbolOfQtKey(int key) {
  if (key >= Qt::Key_F1 && key <= Qt::Key_F35) {
    return XKB_KEY_F1 + static_cast<std::uint32_t>(key - Qt::Key_F1);
  }
  for (const auto& [qtKey, symbol] : qtKeys) {
    if (key == qtKey) return symbol;
  }
  const bool isCharacter = key > 0 && key < Qt::Key_Escape;
  return isCharacter ? xkb_utf32_to_keysym(static_cast<std::uint32_t>(key)) : XKB_KEY_NoSymbol;
}

}  // namespace

std::optional<Accelerator> acceleratorFromGtkText(const std::string& text) {
  Accelerator result;
  std::size_t at = 0;
  while (at < text.size() && text[at] == '<') {
    const std::size_t end = text.find('>', at);
    if (end == std::string::npos) return std::nullopt;
    const std::string name = lowercased(text.substr(at + 1, end - at - 1));
    const auto* found = std::begin(gtkModifiers);
    while (found != std::end(gtkModifiers) && found->first != name) ++found;
    if (found == std::end(gtkModifiers)) return std::nullopt;
    result.modifiers |= found->second;
    at = end + 1;
  }
  const std::string key = text.substr(at);
  if (key == "Above_Tab") return result;
  result.symbol = xkb_keysym_from_name(key.c_str(), XKB_KEYSYM_NO_FLAGS);
  if (result.symbol == XKB_KEY_NoSymbol) {
    result.symbol = xkb_keysym_from_name(key.c_str(), XKB_KEYSYM_CASE_INSENSITIVE);
  }
  if (result.symbol == XKB_KEY_NoSymbol) return std::nullopt;
  return result;
}

std::optional<Accelerator> acceleratorFromQtKey(int combination) {
  const int key = combination & ~static_cast<int>(Qt::KeyboardModifierMask);
  Accelerator result{symbolOfQtKey(key), 0};
  if (result.symbol == XKB_KEY_NoSymbol) return std::nullopt;
  if (combination & Qt::ShiftModifier) result.modifiers |= hotKeyModifier::shift;
  if (combination & Qt::ControlModifier) result.modifiers |= hotKeyModifier::control;
  if (combination & Qt::AltModifier) result.modifiers |= hotKeyModifier::option;
  if (combination & Qt::MetaModifier) result.modifiers |= hotKeyModifier::command;
  return result;
}

}  // namespace qf
