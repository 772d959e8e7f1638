// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/XcbHotKeys.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include "foundation/Log.h"
#include "host/MainQueue.h"

namespace qf {
namespace {

constexpr const char* waylandReason =
    "in a Wayland session shortcuts are heard only while an X11 application has the input; log in "
    "to an X11 session to have them everywhere";

bool isOnWayland() { return std::getenv("WAYLAND_DISPLAY") != nullptr; }

}  // namespace

XcbHotKeys::XcbHotKeys(MainQueue& mainQueue, const std::string& displayName)
    : _mainQueue(mainQueue) {
  KeyboardService::Handlers handlers;
  handlers.onPress = [this](const KeyCombination& combination, std::uint32_t window) {
    queue({combination, window});
  };
  handlers.onGrabChanged = [this](const KeyCombination& combination, KeyboardService::Grab answer) {
    later([combination, answer](XcbHotKeys& self) { self.grabChanged(combination, answer); });
  };
  _keyboard = std::make_unique<KeyboardService>(displayName, std::move(handlers));
}

XcbHotKeys::~XcbHotKeys() = default;

void XcbHotKeys::later(std::function<void(XcbHotKeys&)> work) {
  _mainQueue.async([work = std::move(work), self = std::weak_ptr(_self)] {
    if (const auto hotKeys = self.lock()) work(**hotKeys);
  });
}

Availability XcbHotKeys::availability() const {
  const Availability keyboard = _keyboard->availability();
  if (!keyboard.isAvailable) return keyboard;
  std::string reasons = isOnWayland() ? waylandReason : "";
  for (const auto& [combination, reason] : _refusals) {
    if (!reasons.empty()) reasons += '\n';
    reasons += reason;
  }
  return reasons.empty() ? keyboard : Availability::unavailable(reasons);
}

Availability XcbHotKeys::availability(std::uint32_t keyCode, std::uint32_t modifiers) const {
  const Availability keyboard = _keyboard->availability();
  const auto refusal = _refusals.find({keyCode, modifiers});
  if (!keyboard.isAvailable || refusal == _refusals.end()) return keyboard;
  return Availability::unavailable(refusal->second);
}

HotKeyStatus XcbHotKeys::registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                             HotKeyID id, Ref& ref) {
  const KeyCombination combination{keyCode, modifiers};
  const auto found = _grabs.find(combination);
  if (found == _grabs.end() || found->second.isLost) {
    const KeyboardService::Grab answer = _keyboard->grab(combination);
    if (answer != KeyboardService::Grab::granted) {
      refuse(combination, answer);
      return answer == KeyboardService::Grab::heldByAnother ? HotKeyStatus::eventHotKeyExists
                                                            : HotKeyStatus::eventHotKeyInvalid;
    }
    _refusals.erase(combination);
  }
  ref = ++_lastNumber;
  Grab& grab = _grabs[combination];
  grab.isLost = false;
  grab.registrations.emplace(ref, id);
  _combinations.emplace(ref, combination);
  return HotKeyStatus::noError;
}

void XcbHotKeys::refuse(const KeyCombination& combination, KeyboardService::Grab answer) {
  const auto keyboard = _keyboard->map();
  const std::string label = keyboard ? keyboard->label(combination) : "a combination";
  std::string reason = "the X server does not answer; " + label + " is not registered";
  if (answer == KeyboardService::Grab::heldByAnother) {
    reason = "another program holds " + label + "; choose other keys here or there";
  } else if (answer == KeyboardService::Grab::noSuchKey) {
    reason = "this keyboard has no key for " + label;
  }
  log("HotKeys: " + reason);
  _refusals.insert_or_assign(combination, reason);
}

void XcbHotKeys::unregisterEventHotKey(Ref ref) {
  const auto registration = _combinations.extract(ref);
  if (!registration) return;
  auto& left = _grabs[registration.mapped()].registrations;
  left.erase(ref);
  if (!left.empty()) return;
  _refusals.erase(registration.mapped());
  dropUnusedSoon();
}

void XcbHotKeys::dropUnusedSoon() {
  if (std::exchange(_dropsSoon, true)) return;
  later([](XcbHotKeys& self) { self.dropUnused(); });
}

void XcbHotKeys::dropUnused() {
  _dropsSoon = false;
  for (auto next = _grabs.begin(); next != _grabs.end();) {
    if (next->second.registrations.empty()) {
      _keyboard->ungrab(next->first);
      next = _grabs.erase(next);
    } else {
      ++next;
    }
  }
}

std::optional<std::uint64_t> XcbHotKeys::installEventHandler(Handler handler) {
  if (!_keyboard->availability().isAvailable) return std::nullopt;
  _handlers.emplace(++_lastNumber, std::move(handler));
  return _lastNumber;
}

// On the service's thread.
void XcbHotKeys::queue(const Press& press) {
  if (_waitingPresses > 0 && _gate.isBusy()) return;
  ++_waitingPresses;
  later([press](XcbHotKeys& self) {
    self._presses.push_back(press);
    self.deliverNext();
  });
}

// The handlers queue what a press does: it has been done when work that is queued after it runs.
// The next press waits until then, so that its window is looked at right before.
void XcbHotKeys::deliverNext() {
  if (_isUnderWay || _presses.empty()) return;
  const Press press = _presses.front();
  _presses.pop_front();
  --_waitingPresses;
  if (press.window != 0 && !_gate.isInputStillIn(press.window)) return deliverNext();
  _isUnderWay = true;
  const std::uint64_t requests = _gate.requestCount();
  pressed(press.combination);
  later([requests](XcbHotKeys& self) { self.carriedOut(requests); });
}

void XcbHotKeys::carriedOut(std::uint64_t requestsBefore) {
  if (_gate.requestCount() != requestsBefore)  // what was pressed meanwhile is still in the queue
    return later([](XcbHotKeys& self) { self.keepOne(); });
  _isUnderWay = false;
  deliverNext();
}

void XcbHotKeys::keepOne() {
  while (_presses.size() > 1) {
    _presses.pop_back();
    --_waitingPresses;
  }
  _isUnderWay = false;
  deliverNext();
}

void XcbHotKeys::pressed(const KeyCombination& combination) {
  const auto grab = _grabs.find(combination);
  if (grab == _grabs.end() || grab->second.registrations.empty()) return;
  const HotKeyEvent event{.directObject = grab->second.registrations.rbegin()->second};
  const auto handlers = _handlers;
  for (const auto& [number, handler] : handlers) handler(event);
}

void XcbHotKeys::grabChanged(const KeyCombination& combination, KeyboardService::Grab answer) {
  const auto grab = _grabs.find(combination);
  if (grab == _grabs.end() || grab->second.registrations.empty()) return;
  grab->second.isLost = answer != KeyboardService::Grab::granted;
  if (grab->second.isLost) {
    refuse(combination, answer);
  } else {
    _refusals.erase(combination);
  }
}

}  // namespace qf
