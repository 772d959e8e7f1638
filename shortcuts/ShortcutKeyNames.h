// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qf {

class Bundle;
class KeyboardLayout;

/// What keys are called before a person. Main thread.
class ShortcutKeyNames {
 public:
  /// Both outlive the names.
  ShortcutKeyNames(const KeyboardLayout& layout, const Bundle& bundle)
      : _layout(layout), _bundle(bundle) {}

  /// A glyph or word for keys that have one of their own, "Space" in the user's language; for the
  /// others what the layout of the moment calls them, in upper case. Empty for a key that writes
  /// nothing visible; nothing where there is no layout to ask.
  std::optional<std::string> nameOfKey(std::uint64_t keyCode) const;

 private:
  std::optional<std::string> nameFromLayout(std::uint64_t keyCode) const;

  const KeyboardLayout& _layout;
  const Bundle& _bundle;
};

}  // namespace qf
