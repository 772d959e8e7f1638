// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiBinding.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/elements/AtspiWindows.h"

namespace qf {

AtspiBinding::AtspiBinding(CleanRequest& request, AtspiRequest& application,
                           const Pasteboard& pasteboard)
    : _request(request),
      _application(application),
      _pasteboard(pasteboard),
      _number(request.begin()) {}

void AtspiBinding::prepareCopy(AtspiWindow& window, const AtspiReference& focused) {
  if (std::exchange(_isPrepared, true) || !window.pasted) return;
  if (!window.pasted->select(_application, focused, _pasteboard)) window.pasted.reset();
}

void AtspiBinding::noteCopy(const AtspiFocusedText& text) {
  _request.noteCopy();
  _place = askTextPlace(_application, text.object);
}

bool AtspiBinding::allowsPaste(const AtspiWindow& window) {
  if (!_request.allowsPaste()) return false;
  if (!_request.result() || isStillAt(_application, window.object, _place)) return true;
  _request.noteMoved();
  return false;
}

void AtspiBinding::notePaste(AtspiWindow& window) {
  window.pasted.reset();
  if (!_request.result()) return;
  _isPasted = true;
  if (!_place.selection.isEmpty()) window.pasted.emplace(_place, *_request.result());
}

std::optional<int> AtspiBinding::replacedWholeText() const {
  if (!_isWholeText || !_isPasted) return std::nullopt;
  return _place.selection.end - _place.selection.start;
}

}  // namespace qf
