// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <string>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"

namespace qf {

class AtspiRequest;

/// Puts another text in the place of a part of one, by the interface EditableText, and looks
/// whether it is there. Main thread.
class AtspiTextReplacement {
 public:
  /// An empty range stands for the place where it starts.
  AtspiTextReplacement(AtspiRequest& application, AtspiReference text, AtspiRange replaced);

  /// Empty when all went well, else why not: it ends a sentence that begins with "because". What
  /// was there is put back where the application took it away and refused the new text.
  std::string run(const std::string& utf8);

 private:
  int characterCount();
  QDBusMessage insertion(const QString& text);
  std::string putBack();

  AtspiRequest& _application;
  AtspiReference _text;
  AtspiRange _replaced;
  QString _old;
  int _countBefore;
};

}  // namespace qf
