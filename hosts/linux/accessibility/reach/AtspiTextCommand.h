// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"
#include "hosts/linux/accessibility/reach/AtspiFocusedText.h"

namespace qf {

class Pasteboard;

/// Select All, Copy and Paste in one text object, by the interfaces Text and EditableText, or its
/// context menu where it lacks the latter: for windows without a menu bar, and where the menu bar
/// acts on another text.
class AtspiTextCommand : public AtspiCommand {
 public:
  /// `key` is that of one of the three; the pasteboard outlives this.
  AtspiTextCommand(const AtspiFocusedText& focused, AtspiKeyBinding key, Pasteboard& pasteboard);

  bool isEnabled(AtspiRequest& application) override;
  Outcome run(AtspiRequest& application) override;

 private:
  AtspiRange selection(AtspiRequest& application) const;
  Outcome selectAll(AtspiRequest& application) const;
  Outcome copy(AtspiRequest& application) const;
  Outcome copyByReading(AtspiRequest& application, AtspiRange range) const;
  Outcome paste(AtspiRequest& application) const;

  AtspiFocusedText _focused;
  const AtspiReference& _text;
  AtspiKeyBinding _key;
  Pasteboard& _pasteboard;
};

}  // namespace qf
