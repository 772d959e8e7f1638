// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/AtspiCommand.h"
#include "hosts/linux/accessibility/AtspiMessages.h"

namespace qf {

/// Select All, Copy and Paste in one text object, by the interfaces Text and EditableText: for
/// windows that have no menu bar.
class AtspiTextCommand : public AtspiCommand {
 public:
  /// `key` is that of one of the three; the pasteboard outlives this.
  AtspiTextCommand(AtspiReference text, AtspiKeyBinding key, const Pasteboard& pasteboard);

  bool isEnabled(AtspiApplication& application) override;
  Outcome run(AtspiApplication& application) override;

 private:
  AtspiRange selection(AtspiApplication& application) const;
  Outcome selectAll(AtspiApplication& application) const;
  Outcome paste(AtspiApplication& application) const;

  AtspiReference _text;
  AtspiKeyBinding _key;
  const Pasteboard& _pasteboard;
};

}  // namespace qf
