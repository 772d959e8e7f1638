// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiTarget.h"

#include <signal.h>

#include <cerrno>
#include <chrono>

#include "hosts/linux/accessibility/bus/AtspiWait.h"
#include "hosts/linux/accessibility/elements/AtspiFocus.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto inputLimit = 500ms;
constexpr auto inputInterval = 10ms;

}  // namespace

AtspiTarget::AtspiTarget(const Services& services, std::int32_t processIdentifier)
    : _services(services),
      _request(services.bus, processIdentifier),
      _binding(services.cleaning.request, _request, services.pasteboard) {}

AtspiTarget::~AtspiTarget() {
  if (!_request.isThere()) noteAbsence();
  noteUnpasted(_binding.end());
  _services.failure.tell();
  tellWholeText();
}

void AtspiTarget::noteUnpasted(CleanRequest::Obstacle obstacle) {
  const auto note = [this](const char* why) {
    _services.failure.noteUnpasted(_request.processIdentifier(), why);
  };
  switch (obstacle) {
    case CleanRequest::Obstacle::none:
      return;
    case CleanRequest::Obstacle::otherContents:
      return note("the clipboard was changed meanwhile");
    case CleanRequest::Obstacle::otherPlace:
      return note("the caret or the selection is elsewhere now; it is on the clipboard");
    case CleanRequest::Obstacle::otherWindow:
      return note("another window has the input now; it is on the clipboard");
  }
}

void AtspiTarget::tellWholeText() const {
  const auto characters = _binding.replacedWholeText();
  if (!characters) return;
  const std::string name = _services.failure.nameOf(_request.processIdentifier());
  _services.cleaning.wholeTextHandler("Nothing was selected in " + name + ", so its whole text (" +
                                      std::to_string(*characters) + " characters) was cleaned.");
}

void AtspiTarget::prepareCopy() {
  if (inputWindow()) _binding.prepareCopy(*inputWindow(), focusedText().object);
}

void AtspiTarget::noteCopy() { _binding.noteCopy(focusedText()); }

bool AtspiTarget::allowsWholeText() {
  if (_services.cleaning.takesWholeTexts()) return true;
  noteFailure(whyDisabled(copyKey));
  _isOver = true;
  return false;
}

bool AtspiTarget::allowsPaste() { return !inputWindow() || _binding.allowsPaste(*inputWindow()); }

void AtspiTarget::notePaste() {
  if (inputWindow()) _binding.notePaste(*inputWindow());
}

bool AtspiTarget::hasEnded() const {
  const std::int32_t process = _request.processIdentifier();
  return process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}

std::optional<std::int32_t> AtspiTarget::processIdentifier() {
  if (_request.processIdentifier() > 0 && !hasEnded()) return _request.processIdentifier();
  noteAbsence();
  return std::nullopt;
}

void AtspiTarget::noteFailure(const std::string& why) {
  if (!_request.isThere()) return noteAbsence();
  _services.failure.note(_request.processIdentifier(), why);
}

void AtspiTarget::noteAbsence() {
  std::string why = "it shows no window on the accessibility bus";
  if (_request.processIdentifier() <= 0)
    why = "no window of another application has had the input yet";
  else if (hasEnded())
    why = "it has ended";
  else if (const Availability bus = _services.bus.availability(); !bus.isAvailable)
    why = bus.reason;
  else if (_request.roots().empty())
    why = "it is not on the accessibility bus; where it can be made to use it, start it anew";
  else if (!_request.isThere())
    why = _request.whyNotThere();
  _services.failure.note(_request.processIdentifier(), why);
}

const std::shared_ptr<AtspiWindow>& AtspiTarget::inputWindow() {
  if (!_choice) {
    _choice = _services.windows.inputWindow(_request);
    if (!_choice->window) noteAbsence();
  }
  return _choice->window;
}

bool AtspiTarget::isInputWindow(const AtspiReference& object) {
  return inputWindow() && inputWindow()->object == object;
}

const AtspiReference& AtspiTarget::focusedObject() {
  AtspiWindow& window = *inputWindow();
  window.focused = findFocusedObject(_request, window.object, _choice->isActive, window.focused);
  return window.focused;
}

AtspiReference AtspiTarget::settledFocus() {
  if (!inputWindow()) return {};
  const AtspiWindow& window = *inputWindow();
  if (_choice->isActive) return window.focused.isNull() ? focusedObject() : window.focused;
  const auto deadline = std::chrono::steady_clock::now() + inputLimit;
  _choice->isActive = atspi::waitUntil(deadline, inputInterval, [&] {
    return _request.states(window.object).has(AtspiState::active) || !_request.isThere();
  });
  return focusedObject();
}

const AtspiFocusedText& AtspiTarget::focusedText() {
  if (!_focusedText) _focusedText = readFocusedText(_request, settledFocus());
  return *_focusedText;
}

std::shared_ptr<AtspiMenuTree> AtspiTarget::menuTree() {
  const auto& window = inputWindow();
  if (!window) return nullptr;
  if (!_menuTree) {
    if (!window->menuTree || !window->menuTree->isCurrent(_request))
      window->menuTree = AtspiMenuTree::read(_request, window->object);
    _menuTree = window->menuTree;
  }
  return _request.isThere() ? _menuTree : nullptr;
}

}  // namespace qf
