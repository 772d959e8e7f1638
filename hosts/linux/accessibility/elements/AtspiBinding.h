// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>

#include "hosts/linux/accessibility/reach/AtspiFocusedText.h"
#include "hosts/linux/accessibility/reach/AtspiTextPlace.h"
#include "hosts/linux/request/CleanRequest.h"

namespace qf {

class AtspiRequest;
class Pasteboard;
struct AtspiWindow;

/// Ties Paste to the text that Copy was pressed in, on one request into an application. Main
/// thread.
class AtspiBinding {
 public:
  /// The request begins with this. All outlive it.
  AtspiBinding(CleanRequest& request, AtspiRequest& application, const Pasteboard& pasteboard);

  /// Before the first Copy: selects what the last request has pasted there, where it still stands
  /// so. `focused` is the object with the focus, or null.
  void prepareCopy(AtspiWindow& window, const AtspiReference& focused);
  bool hasDroppedSelection() const { return _request.hasDroppedSelection(); }
  /// Copy has changed the clipboard.
  void noteCopy(const AtspiFocusedText& text);
  /// Nothing was selected, so all of the text was.
  void noteWholeText() { _isWholeText = true; }
  /// False where the result is not to be pasted, or not there.
  bool allowsPaste(const AtspiWindow& window);
  void notePaste(AtspiWindow& window);

  /// Ends the request and tells what stood in the way of Paste.
  CleanRequest::Obstacle end() { return _request.end(_number); }
  /// How many characters the whole text had, where it was taken because nothing was selected, and
  /// replaced.
  std::optional<int> replacedWholeText() const;

 private:
  CleanRequest& _request;
  AtspiRequest& _application;
  const Pasteboard& _pasteboard;
  const std::uint64_t _number;
  AtspiTextPlace _place;
  bool _isPrepared = false;
  bool _isWholeText = false;
  bool _isPasted = false;
};

}  // namespace qf
