// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiTextPlace.h"

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/elements/AtspiFocus.h"

namespace qf {

AtspiTextPlace askTextPlace(AtspiRequest& application, const AtspiReference& text) {
  if (text.isNull()) return {};
  const auto answers = application.ask({atspi::getCaretOffset(text), atspi::getSelectionCount(text),
                                        atspi::getSelection(text), atspi::getCharacterCount(text),
                                        atspi::getRole(text)});
  AtspiTextPlace place;
  place.text = text;
  place.caret = atspi::numberProperty(answers[0]);
  if (atspi::signedNumber(answers[1]) > 0) place.selection = atspi::range(answers[2]);
  place.characters = atspi::numberProperty(answers[3]);
  place.isTerminal = atspi::number(answers[4]) == atspirole::terminal;
  return place;
}

bool isStillAt(AtspiRequest& application, const AtspiReference& window,
               const AtspiTextPlace& place) {
  if (place.text.isNull()) return true;
  const AtspiStates states = application.states(place.text);
  if (!isShown(application, states)) return false;
  if (!states.has(AtspiState::focused)) {
    const AtspiReference focused = searchFocusedObject(application, window);
    if (!focused.isNull() && focused != place.text) return false;
  }
  return place.isTerminal || askTextPlace(application, place.text) == place;
}

}  // namespace qf
