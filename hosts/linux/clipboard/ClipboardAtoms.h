// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/x11/XcbConnection.h"

namespace qf {

/// The atoms of the selection conventions (ICCCM chapter 2, and the freedesktop.org clipboard
/// manager's) on one connection.
struct ClipboardAtoms {
  explicit ClipboardAtoms(XcbConnection& connection);

  xcb_atom_t clipboard, clipboardManager, targets, timestamp, multiple, saveTargets, incr, atomPair,
      utf8String, null;
  /// Properties of our own windows.
  xcb_atom_t transfer, saveList;
};

}  // namespace qf
