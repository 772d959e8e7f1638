// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "hosts/linux/accessibility/reach/AtspiTextPlace.h"

namespace qf {

class AtspiRequest;
class Pasteboard;

/// The text that a request has pasted. As long as caret and text stand as the paste left them, the
/// next request takes it again. Main thread.
class AtspiPastedText {
 public:
  /// `before` is the place at which the selection was replaced, by contents of the clipboard that
  /// have this identifier.
  AtspiPastedText(const AtspiTextPlace& before, std::string contents);

  /// Selects the text, where it stands as it was pasted, and answers whether it did. Waits at most
  /// 1 s for the selection.
  bool select(AtspiRequest& application, const AtspiReference& focused,
              const Pasteboard& pasteboard) const;

 private:
  std::optional<AtspiRange> range(AtspiRequest& application, const AtspiReference& focused) const;
  bool isAsPasted(AtspiRequest& application, AtspiRange range, const Pasteboard& pasteboard) const;

  AtspiReference _text;
  int _start;
  int _otherCharacters;  ///< of the text, besides what was pasted
  std::string _contents;
};

}  // namespace qf
