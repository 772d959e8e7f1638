// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qf {

class Bundle;
class KeyboardLayout;

/// The names of keys that a person reads. Main thread.
class ShortcutKeyNames {
 public:
  /// Both outlive the names.
  ShortcutKeyNames(const KeyboardLayout& layout, const Bundle& bundle)
      : _layout(layout), _bundle(bundle) {}

  /// A glyph or word for keys with a fixed one ("Space" in the user's language); otherwise the
  /// active layout's character in upper case. Empty for a key that types nothing visible; nothing
  /// without a layout.
  std::optional<std::string> nameOfKey(std::uint64_t keyCode) const;

 private:
  std::optional<std::string> nameFromLayout(std::uint64_t keyCode) const;

  const KeyboardLayout& _layout;
  const Bundle& _bundle;
};

}  // namespace qf
