// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shortcuts/MASShortcut.h"
#include "shortcuts/UserDefaultsController.h"

namespace qf {

class ValueTransformer;

/// Keeps a shortcut of this process and a value of the user defaults the same. Main thread.
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

  /// The setter is given the present value before this returns, and every later one that does not
  /// come from `propagateValue`. What it propagates meanwhile is not written back.
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
  bool _isPassingOn = false;  // what comes from one side is not given back to it
};

}  // namespace qf
