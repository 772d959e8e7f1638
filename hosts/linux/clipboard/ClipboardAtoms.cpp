// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardAtoms.h"

namespace qf {

ClipboardAtoms::ClipboardAtoms(XcbConnection& connection) {
  static const std::string names[] = {"CLIPBOARD", "CLIPBOARD_MANAGER",  "TARGETS",
                                      "TIMESTAMP", "MULTIPLE",           "SAVE_TARGETS",
                                      "INCR",      "ATOM_PAIR",          "UTF8_STRING",
                                      "NULL",      "_QUENFOLD_TRANSFER", "_QUENFOLD_SAVE_LIST"};
  xcb_atom_t* const fields[] = {
      &clipboard, &clipboardManager, &targets,    &timestamp, &multiple, &saveTargets,
      &incr,      &atomPair,         &utf8String, &null,      &transfer, &saveList};
  static_assert(std::size(names) == std::size(fields));
  const auto atoms =
      connection.isAlive() ? connection.atoms(names) : std::vector<xcb_atom_t>(std::size(names));
  for (std::size_t i = 0; i < atoms.size(); ++i) *fields[i] = atoms[i];
}

}  // namespace qf
