// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/DesktopHotKeys.h"

#include <utility>

#include "hosts/linux/keys/DesktopShortcuts.h"

namespace qf {
namespace {

constexpr std::uint32_t keyAboveTab = 50;

}  // namespace

DesktopHotKeys::DesktopHotKeys(QDBusConnection bus, const KeyboardService& keyboard)
    : _bus(std::move(bus)), _keyboard(keyboard) {}

Availability DesktopHotKeys::availability() const {
  if (copySymbolicHotKeys()) return Availability::available();
  return Availability::unavailable(
      "no desktop here publishes its shortcuts (those of GNOME, KDE and Xfce can be read)");
}

std::optional<std::vector<SymbolicHotKey>> DesktopHotKeys::copySymbolicHotKeys() const {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(900);
  const auto map = _keyboard.map();
  if (!map) return std::nullopt;
  std::vector<SymbolicHotKey> result;
  bool isPublished = false;
  for (const DesktopShortcuts& shortcuts :
       {gnomeShortcuts(), kdeShortcuts(_bus, deadline), xfceShortcuts(_bus, deadline)}) {
    if (!shortcuts) continue;
    isPublished = true;
    for (const Accelerator& accelerator : *shortcuts) {
      const auto combination =
          accelerator.symbol == 0
              ? std::optional(KeyCombination{keyAboveTab, accelerator.modifiers})
              : map->combination(accelerator.symbol, accelerator.modifiers);
      if (combination) result.push_back({combination->keyCode, combination->modifiers, true});
    }
  }
  if (!isPublished) return std::nullopt;
  return result;
}

}  // namespace qf
