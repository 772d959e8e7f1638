// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "host/HotKeys.h"

namespace qf {

class MASShortcut;

/// One registration with the hot-key service, from construction to destruction. Main thread.
class MASHotKey {
 public:
  static constexpr FourCharCode signature = fourCharCode("MASS");

  /// Null where the service refuses.
  static std::unique_ptr<MASHotKey> registeredHotKeyWithShortcut(const MASShortcut& shortcut,
                                                                 HotKeys& hotKeys);
  ~MASHotKey();
  MASHotKey(const MASHotKey&) = delete;
  MASHotKey& operator=(const MASHotKey&) = delete;

  /// Unique in the process; a refused registration uses up its number, too.
  std::uint32_t carbonID() const { return _carbonID; }

  std::function<void()> action;  ///< may be empty

 private:
  explicit MASHotKey(HotKeys& hotKeys);

  HotKeys& _hotKeys;
  const std::uint32_t _carbonID;
  HotKeys::Ref _hotKeyRef = 0;
};

}  // namespace qf
