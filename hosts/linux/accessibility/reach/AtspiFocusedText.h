// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

class AtspiRequest;

/// The object with the focus, and what can be done with its text.
struct AtspiFocusedText {
  enum class Kind {
    unknown,   ///< nothing has the focus, or what has it does not say what it is
    notText,   ///< a list, a tree, a button: what is copied there is no selected text
    password,  ///< left alone on purpose
    terminal,
    cell,      ///< of a spreadsheet
    entry,     ///< one line
    document,  ///< any number of lines
    part,      ///< a paragraph of a text, whose selection may lie in other paragraphs
    page,      ///< a text of another kind, as in a browser
  };

  AtspiReference object;  ///< null where nothing has the focus
  bool isInChromium = false;
  Kind kind = Kind::unknown;
  bool hasText = false;     ///< by the interface Text
  bool isEditable = false;  ///< by the interface EditableText

  /// Where the text cannot be cleaned at all: ends a sentence that begins with "because".
  std::string whyRefused() const;
  /// Where there is no text to be asked itself, the same.
  std::string whyNotAsked() const;
  /// Whether it always knows what is selected in it.
  bool tellsSelection() const;
};

/// Asks the object with the focus (null where it is not known) what it is. Main thread.
AtspiFocusedText readFocusedText(AtspiRequest& request, const AtspiReference& focused);

/// Whether something can be pasted there now. Terminals do not call themselves editable.
bool takesText(AtspiRequest& request, const AtspiFocusedText& text);

/// What the text says is selected: nothing where it does not say, or where several parts are.
std::optional<AtspiRange> readSelection(AtspiRequest& request, const AtspiReference& text);

}  // namespace qf
