// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASHotKey.h"

#include "shortcuts/MASShortcut.h"

namespace qf {
namespace {

std::uint32_t lastCarbonID = 0;

}  // namespace

MASHotKey::MASHotKey(HotKeys& hotKeys) : _hotKeys(hotKeys), _carbonID(++lastCarbonID) {}

MASHotKey::~MASHotKey() {
  if (_hotKeyRef != 0) _hotKeys.unregisterEventHotKey(_hotKeyRef);
}

std::unique_ptr<MASHotKey> MASHotKey::registeredHotKeyWithShortcut(const MASShortcut& shortcut,
                                                                   HotKeys& hotKeys) {
  std::unique_ptr<MASHotKey> hotKey(new MASHotKey(hotKeys));
  const HotKeyStatus status =
      hotKeys.registerEventHotKey(shortcut.carbonKeyCode(), shortcut.carbonFlags(),
                                  {signature, hotKey->_carbonID}, hotKey->_hotKeyRef);
  if (status == HotKeyStatus::noError) return hotKey;
  hotKey->_hotKeyRef = 0;
  return nullptr;
}

}  // namespace qf
