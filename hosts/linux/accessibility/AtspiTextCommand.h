// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/AtspiCommand.h"
#include "hosts/linux/accessibility/AtspiMessages.h"
#include "hosts/linux/accessibility/AtspiTextTarget.h"

namespace qf {

/// Select All, Copy and Paste in one text object, by the interfaces Text and EditableText, or its
/// context menu where it lacks the latter: for windows that have no menu bar.
class AtspiTextCommand : public AtspiCommand {
 public:
  /// `key` is that of one of the three; the pasteboard outlives this.
  AtspiTextCommand(const AtspiTextTarget& target, AtspiKeyBinding key, Pasteboard& pasteboard);

  bool isEnabled(AtspiApplication& application) override;
  Outcome run(AtspiApplication& application) override;

 private:
  AtspiRange selection(AtspiApplication& application) const;
  Outcome selectAll(AtspiApplication& application) const;
  Outcome copy(AtspiApplication& application) const;
  Outcome copyByReading(AtspiApplication& application, AtspiRange range) const;
  Outcome paste(AtspiApplication& application) const;

  AtspiTextTarget _target;
  const AtspiReference& _text;
  AtspiKeyBinding _key;
  Pasteboard& _pasteboard;
};

/// Whether something can be pasted there. Terminals do not call themselves editable.
bool takesText(AtspiApplication& application, const AtspiReference& object);

}  // namespace qf
