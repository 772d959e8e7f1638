// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"

#include <signal.h>

#include <cerrno>
#include <chrono>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"
#include "hosts/linux/accessibility/elements/AtspiFocus.h"
#include "hosts/linux/accessibility/elements/AtspiMenuElement.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"
#include "hosts/linux/accessibility/elements/AtspiObjectElement.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto inputLimit = 500ms;
constexpr auto inputInterval = 10ms;

}  // namespace

AtspiApplicationElement::AtspiApplicationElement(AtspiBus& bus, AtspiWindows& windows,
                                                 AtspiLastFailure& obstacle, Pasteboard& pasteboard,
                                                 std::int32_t processIdentifier)
    : _application(bus, processIdentifier),
      _windows(windows),
      _obstacle(obstacle),
      _pasteboard(pasteboard) {}

AtspiApplicationElement::~AtspiApplicationElement() {
  if (!_application.isThere()) noteAbsence();
  _obstacle.tell();
}

std::vector<std::string> AtspiApplicationElement::attributeNames() const {
  return {"AXRole",    "AXTitle",         "AXChildren",        "AXWindows",
          "AXMenuBar", "AXFocusedWindow", "AXFocusedUIElement"};
}

std::optional<AccessibilityValue> AtspiApplicationElement::copyAttributeValue(
    std::string_view attribute) const {
  const auto ifThere = [](AccessibilityElementRef found) -> std::optional<AccessibilityValue> {
    if (!found) return std::nullopt;
    return found;
  };
  if (attribute == "AXRole") return Value("AXApplication");
  if (!_application.isThere()) {
    noteAbsence();
    return std::nullopt;
  }
  if (attribute == "AXTitle") {
    const QString name =
        atspi::textProperty(_application.ask(atspi::getName(_application.roots().front())));
    return Value(name.toStdString());
  }
  if (attribute == "AXMenuBar") return ifThere(menuBar());
  if (attribute == "AXFocusedUIElement") return ifThere(focusedElement());
  if (attribute == "AXFocusedWindow")
    return inputWindow() ? ifThere(element(inputWindow()->object)) : std::nullopt;
  if (attribute == "AXWindows") return windows();
  if (attribute == "AXChildren") {
    auto children = windows();
    if (const auto bar = menuBar()) children.push_back(bar);
    return children;
  }
  return std::nullopt;
}

std::optional<std::int32_t> AtspiApplicationElement::processIdentifier() const {
  const std::int32_t process = _application.processIdentifier();
  if (process > 0 && (kill(process, 0) == 0 || errno != ESRCH)) return process;
  _obstacle.note(process, "it has ended");
  return std::nullopt;
}

const std::shared_ptr<AtspiWindow>& AtspiApplicationElement::inputWindow() const {
  if (!_choice) {
    _choice = _windows.inputWindow(_application);
    if (!_choice->window) noteAbsence();
  }
  return _choice->window;
}

void AtspiApplicationElement::noteAbsence() const {
  const char* why = "it shows no window on the accessibility bus";
  if (_application.processIdentifier() <= 0)
    why = "no window of another application has had the input yet";
  else if (_application.roots().empty())
    why = "it is not on the accessibility bus; where it can be made to use it, start it anew";
  else if (!_application.isThere())
    why = _application.whyNotThere();
  _obstacle.note(_application.processIdentifier(), why);
}

bool AtspiApplicationElement::isInputWindow(const AtspiReference& object) const {
  return inputWindow() && inputWindow()->object == object;
}

AccessibilityElementRef AtspiApplicationElement::element(const AtspiReference& object) const {
  return std::make_shared<AtspiObjectElement>(shared_from_this(), object);
}

const AtspiReference& AtspiApplicationElement::focusedObject() const {
  AtspiWindow& window = *inputWindow();
  window.focused =
      findFocusedObject(_application, window.object, _choice->isActive, window.focused);
  return window.focused;
}

AccessibilityElementRef AtspiApplicationElement::focusedElement() const {
  const auto& window = inputWindow();
  if (!window) return nullptr;
  const AtspiReference& focused = focusedObject();
  if (!_application.isThere()) return nullptr;
  return element(focused.isNull() ? window->object : focused);
}

AtspiReference AtspiApplicationElement::settledFocus() const {
  if (!inputWindow()) return {};
  const AtspiWindow& window = *inputWindow();
  if (!_isFocusSettled && !_choice->isActive) {
    const auto deadline = std::chrono::steady_clock::now() + inputLimit;
    _choice->isActive = atspi::waitUntil(deadline, inputInterval, [&] {
      return _application.states(window.object).has(AtspiState::active) || !_application.isThere();
    });
    focusedObject();
  }
  _isFocusSettled = true;
  return window.focused.isNull() ? focusedObject() : window.focused;
}

const AtspiTextTarget& AtspiApplicationElement::target() const {
  if (!_target) {
    _target = findTextTarget(_application, settledFocus());
    if (_target->text.isNull()) _obstacle.note(_application.processIdentifier(), _target->whyNone);
  }
  return *_target;
}

AccessibilityElementRef AtspiApplicationElement::menuBar() const {
  const auto& window = inputWindow();
  if (!window) return nullptr;
  if (!_menuTree) {
    if (!window->menuTree || !window->menuTree->isCurrent(_application))
      window->menuTree = AtspiMenuTree::read(_application, window->object);
    _menuTree = window->menuTree;
  }
  if (!_menuTree || !_application.isThere()) return nullptr;
  return std::make_shared<AtspiMenuElement>(shared_from_this(), _menuTree, _menuTree->bar());
}

std::vector<AccessibilityElementRef> AtspiApplicationElement::windows() const {
  std::vector<AccessibilityElementRef> elements;
  for (const AtspiReference& window : _application.children(_application.roots()))
    elements.push_back(element(window));
  return elements;
}

}  // namespace qf
