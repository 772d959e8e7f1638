// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"
#include "hosts/linux/accessibility/reach/AtspiTextTarget.h"

namespace qf {

/// Select All, Copy and Paste in one text object, by the interfaces Text and EditableText, or its
/// context menu where it lacks the latter: for windows that have no menu bar.
class AtspiTextCommand : public AtspiCommand {
 public:
  /// `key` is that of one of the three; the pasteboard outlives this.
  AtspiTextCommand(const AtspiTextTarget& target, AtspiKeyBinding key, Pasteboard& pasteboard);

  bool isEnabled(AtspiRequest& application) override;
  Outcome run(AtspiRequest& application) override;

 private:
  AtspiRange selection(AtspiRequest& application) const;
  Outcome selectAll(AtspiRequest& application) const;
  Outcome copy(AtspiRequest& application) const;
  Outcome copyByReading(AtspiRequest& application, AtspiRange range) const;
  Outcome paste(AtspiRequest& application) const;

  AtspiTextTarget _target;
  const AtspiReference& _text;
  AtspiKeyBinding _key;
  Pasteboard& _pasteboard;
};

/// Whether something can be pasted there. Terminals do not call themselves editable.
bool takesText(AtspiRequest& application, const AtspiReference& object);

}  // namespace qf
