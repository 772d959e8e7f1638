// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shortcuts/MASShortcut.h"
#include "shortcuts/UserDefaultsController.h"

namespace qf {

class ValueTransformer;

/// Keeps a shortcut of this process equal to a value of the user defaults. Main thread.
class ShortcutBinding {
 public:
  /// The transformer given, else the one of that name.
  struct Options {
    const ValueTransformer* valueTransformer = nullptr;
    std::optional<std::string> valueTransformerName;
  };
  struct Info {
    std::string name;
    UserDefaultsController* observedObject = nullptr;  ///< outlives the binding
    std::optional<std::string> observedKeyPath;
    Options options;
  };
  using Setter = std::function<void(const std::optional<MASShortcut>&)>;

  /// Calls the setter with the present value before this returns, and with every later one that
  /// does not come from `propagateValue`. Values propagated during such a call are not written
  /// back.
  ShortcutBinding(Info info, Setter setter);
  ~ShortcutBinding();
  ShortcutBinding(const ShortcutBinding&) = delete;
  ShortcutBinding& operator=(const ShortcutBinding&) = delete;

  const Info& info() const { return _info; }
  /// Writes the changed value back.
  void propagateValue(const std::optional<MASShortcut>& value);

 private:
  const ValueTransformer* transformer() const;
  void follow(const std::optional<Value>& value);

  Info _info;
  Setter _setter;
  std::optional<UserDefaultsController::ObserverID> _observer;
  bool _isPassingOn = false;  // prevents echoing a value to the side it came from
};

}  // namespace qf
