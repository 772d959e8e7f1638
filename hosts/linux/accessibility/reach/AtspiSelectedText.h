// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <optional>
#include <string>

#include "hosts/linux/accessibility/reach/AtspiFocusedText.h"

namespace qf {

/// What a text says is selected in it, to be compared with what was copied: an application's menu
/// may copy the selection of another text. Main thread.
class AtspiSelectedText {
 public:
  /// Nothing where the text has no selection, or does not tell it in a form that can be compared.
  /// Of a long selection the beginning and the end are read.
  static std::optional<AtspiSelectedText> read(AtspiRequest& request, const AtspiFocusedText& text);

  /// Compares without white space: line ends, and blanks that do not break, are copied in other
  /// forms than they are told.
  bool isWhat(const std::string& copied) const;

 private:
  AtspiSelectedText(QString beginning, QString end);

  QString _beginning;
  QString _end;  ///< null where the beginning is the whole
};

}  // namespace qf
