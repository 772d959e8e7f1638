// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiTarget.h"

#include <signal.h>

#include <cerrno>
#include <chrono>

#include "hosts/linux/accessibility/bus/AtspiWait.h"
#include "hosts/linux/accessibility/elements/AtspiFocus.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto inputLimit = 500ms;
constexpr auto inputInterval = 10ms;

}  // namespace

AtspiTarget::AtspiTarget(const Services& services, std::int32_t processIdentifier)
    : _services(services), _request(services.bus, processIdentifier) {}

AtspiTarget::~AtspiTarget() {
  if (!_request.isThere()) noteAbsence();
  _services.failure.tell();
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
  const char* why = "it shows no window on the accessibility bus";
  if (_request.processIdentifier() <= 0)
    why = "no window of another application has had the input yet";
  else if (hasEnded())
    why = "it has ended";
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
