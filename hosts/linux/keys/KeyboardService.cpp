// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/KeyboardService.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <utility>

namespace qf {

using namespace std::chrono_literals;

KeyboardService::KeyboardService(const std::string& displayName, Handlers handlers)
    : _connection(displayName),
      _handlers(std::move(handlers)),
      _wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!_connection.fault().empty()) {
    _availability = Availability::unavailable(_connection.fault());
    return;
  }
  _map = _connection.readKeyboard(nullptr);
  if (!_map) {
    _availability = Availability::unavailable("the X server tells nothing of its keyboard");
    return;
  }
  _thread = std::thread([this] { run(); });
}

KeyboardService::~KeyboardService() {
  if (_thread.joinable()) {
    {
      const std::lock_guard lock(_mutex);
      _isEnding = true;
    }
    eventfd_write(_wakeUp, 1);
    _thread.join();
  }
  close(_wakeUp);
}

Availability KeyboardService::availability() const {
  const std::lock_guard lock(_mutex);
  return _availability;
}

std::shared_ptr<const KeyboardMap> KeyboardService::map() const {
  const std::lock_guard lock(_mutex);
  return _map;
}

void KeyboardService::post(Job job) {
  {
    const std::lock_guard lock(_mutex);
    _jobs.push_back(std::move(job));
  }
  eventfd_write(_wakeUp, 1);
}

KeyboardService::Grab KeyboardService::grab(const KeyCombination& combination) {
  if (!availability().isAvailable) return Grab::noAnswer;
  if (_unanswered.valid() && _unanswered.wait_for(0s) == std::future_status::timeout) {
    return Grab::noAnswer;
  }
  auto answer = std::make_shared<std::promise<Grab>>();
  _unanswered = answer->get_future();
  post([this, combination, answer] { answer->set_value(grabNow(combination)); });
  if (_unanswered.wait_for(900ms) == std::future_status::timeout) {
    ungrab(combination);
    return Grab::noAnswer;
  }
  return _unanswered.get();
}

void KeyboardService::ungrab(const KeyCombination& combination) {
  post([this, combination] { ungrabNow(combination); });
}

void KeyboardService::run() {
  while (_connection.isAlive()) {
    // Either may bring more of both: who waits for an answer has other events read meanwhile.
    const bool hadEvents = handleEvents();
    const bool hadJobs = runJobs();
    _connection.flush();
    {
      const std::lock_guard lock(_mutex);
      if (_isEnding) return;
    }
    if (!hadEvents && !hadJobs) waitForInput();
  }
  end("the connection to the X display was lost; log in again");
}

void KeyboardService::waitForInput() const {
  pollfd watched[] = {{_connection.fileDescriptor(), POLLIN, 0}, {_wakeUp, POLLIN, 0}};
  poll(watched, 2, -1);
  eventfd_t count = 0;
  eventfd_read(_wakeUp, &count);
}

bool KeyboardService::handleEvents() {
  bool isAny = false;
  bool isChanged = false;
  while (const auto event = _connection.nextEvent()) {
    isAny = true;
    switch (_connection.classify(*event)) {
      case KeyboardConnection::News::press:
        handlePress(reinterpret_cast<const xcb_key_press_event_t&>(*event));
        break;
      case KeyboardConnection::News::keyboardChanged:
      case KeyboardConnection::News::layoutChanged:
        isChanged = true;
        break;
      case KeyboardConnection::News::nothing:
        break;
    }
  }
  // Many come at once when a keyboard is set up.
  if (isChanged) keyboardChanged();
  return isAny;
}

bool KeyboardService::runJobs() {
  std::deque<Job> jobs;
  {
    const std::lock_guard lock(_mutex);
    jobs.swap(_jobs);
  }
  for (const Job& job : jobs) job();
  return !jobs.empty();
}

void KeyboardService::handlePress(const xcb_key_press_event_t& press) {
  if (!_connection.begins(press)) return;
  constexpr std::uint16_t allModifiers = 0xFF;  // the higher bits are mouse buttons and layout
  const Stroke pressed(press.detail, press.state & allModifiers & ~map()->lockMask());
  for (const auto& [combination, strokes] : _grabs) {
    for (const Stroke& stroke : strokes) {
      if (stroke == pressed) return _handlers.onPress(combination, _connection.activeWindow());
    }
  }
}

KeyboardService::Grab KeyboardService::grabNow(const KeyCombination& combination) {
  const auto found = _grabs.find(combination);
  if (found != _grabs.end() && !found->second.empty()) return Grab::granted;
  const auto keyboard = map();
  const auto keys = keyboard->keys(combination.keyCode);
  if (keys.empty()) return Grab::noSuchKey;
  const std::uint16_t modifiers = keyboard->modifierMask(combination.modifiers);
  std::vector<Stroke> strokes;
  for (const std::uint8_t key : keys) {
    if (!_connection.grab(key, modifiers, *keyboard)) {
      for (const auto& [grabbedKey, mask] : strokes)
        _connection.ungrab(grabbedKey, mask, *keyboard);
      return _connection.isAlive() ? Grab::heldByAnother : Grab::noAnswer;
    }
    strokes.emplace_back(key, modifiers);
  }
  _grabs[combination] = std::move(strokes);
  return Grab::granted;
}

void KeyboardService::ungrabNow(const KeyCombination& combination) {
  const auto found = _grabs.find(combination);
  if (found == _grabs.end()) return;
  for (const auto& [key, modifiers] : found->second) _connection.ungrab(key, modifiers, *map());
  _grabs.erase(found);
}

void KeyboardService::keyboardChanged() {
  const auto before = map();
  auto now = _connection.readKeyboard(before.get());
  if (!now) return;
  setMap(std::move(now));
  if (!map()->grabsLike(*before)) regrab(*before);
}

void KeyboardService::regrab(const KeyboardMap& before) {
  std::map<KeyCombination, std::vector<Stroke>> previous;
  previous.swap(_grabs);
  for (const auto& [combination, strokes] : previous) {
    for (const auto& [key, modifiers] : strokes) _connection.ungrab(key, modifiers, before);
  }
  for (const auto& [combination, strokes] : previous) {
    const Grab answer = grabNow(combination);
    if (answer != Grab::granted) _grabs.emplace(combination, std::vector<Stroke>());
    const bool wasGranted = !strokes.empty();
    if (wasGranted != (answer == Grab::granted)) _handlers.onGrabChanged(combination, answer);
  }
}

void KeyboardService::setMap(std::shared_ptr<const KeyboardMap> keyboard) {
  const std::lock_guard lock(_mutex);
  _map = std::move(keyboard);
}

void KeyboardService::end(std::string fault) {
  std::deque<Job> jobs;
  {
    const std::lock_guard lock(_mutex);
    _availability = Availability::unavailable(std::move(fault));
    jobs.swap(_jobs);
  }
  for (const Job& job : jobs) job();
}

}  // namespace qf
