// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/Error.h"
#include "foundation/Result.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "shortcuts/UserDefaultsController.h"

namespace qf {

class ValueTransformer;

/// Binds shortcuts in the user defaults to actions: a stored shortcut is registered, and follows
/// every change of the default. Main thread.
class MASShortcutBinder {
 public:
  using Action = MASShortcutMonitor::Action;

  /// How a default is turned into a shortcut: the transformer given, else the one of that name.
  struct BindingOptions {
    const ValueTransformer* valueTransformer = nullptr;
    std::string valueTransformerName = "NSKeyedUnarchiveFromData";
  };

  static MASShortcutBinder& sharedBinder();

  /// Without a monitor nothing is ever registered. All outlive the binder.
  MASShortcutBinder(MASShortcutMonitor* monitor, UserDefaultsController& defaultsController);
  ~MASShortcutBinder();
  MASShortcutBinder(const MASShortcutBinder&) = delete;
  MASShortcutBinder& operator=(const MASShortcutBinder&) = delete;

  /// The stored shortcut is registered before this returns.
  void bindShortcutWithDefaultsKey(const std::string& key, Action action);
  void breakBindingWithDefaultsKey(const std::string& key);
  /// The shortcuts that apply where nothing is stored.
  void registerDefaultShortcuts(const std::vector<std::pair<std::string, MASShortcut>>& shortcuts);
  bool isRegisteredAction(std::string_view key) const { return _actions.contains(key); }

  // Both answer an error for a key that is not bound.
  Result<std::optional<MASShortcut>> valueForUndefinedKey(const std::string& key) const;
  std::optional<Error> setValueForUndefinedKey(const std::optional<MASShortcut>& shortcut,
                                               const std::string& key);

  MASShortcutMonitor* shortcutMonitor;
  BindingOptions bindingOptions;  ///< of bindings made from now on

 private:
  const ValueTransformer* transformer() const;

  UserDefaultsController& _defaultsController;
  std::map<std::string, Action, std::less<>> _actions;
  std::map<std::string, MASShortcut, std::less<>> _shortcuts;
  std::map<std::string, UserDefaultsController::ObserverID, std::less<>> _bindings;
};

}  // namespace qf
