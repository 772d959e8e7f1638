// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xkbcommon/xkbcommon.h>

#include <memory>

namespace qf {

struct XkbRelease {
  void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
  void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbRelease>;
using XkbState = std::unique_ptr<xkb_state, XkbRelease>;

}  // namespace qf
