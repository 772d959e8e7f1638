// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/request/CleanRequest.h"

#include "host/Pasteboard.h"

namespace qf {
namespace {

// From the press of a shortcut to the beginning of its request.
constexpr std::chrono::milliseconds pressTime{300};

}  // namespace

std::uint64_t CleanRequest::begin() {
  _begun = std::chrono::steady_clock::now();
  _window = 0;
  _copied.reset();
  _isSent = false;
  _result.reset();
  _obstacle = Obstacle::none;
  _isRunning = true;
  return ++_number;
}

CleanRequest::Obstacle CleanRequest::end(std::uint64_t number) {
  if (number != _number) return Obstacle::none;
  _isRunning = false;
  return _obstacle;
}

bool CleanRequest::hasDroppedSelection() const {
  return _surroundings.selectionGivenUp() > _begun - pressTime;
}

void CleanRequest::noteCopy() {
  _copied = _pasteboard.contentsIdentifier();
  _window = _surroundings.inputWindow();
}

void CleanRequest::willSend() {
  _isSent = true;
  _result.reset();
}

std::optional<EventHints> CleanRequest::hintsOfEvent(const Receiver& receiver,
                                                     std::chrono::milliseconds limit) {
  if (_isRunning && !_copied) return std::nullopt;
  if (_isRunning && !_pasteboard.hasContents(*_copied)) {
    _obstacle = Obstacle::otherContents;
    return std::nullopt;
  }
  _receiver = receiver;
  _textBefore = receiver.takesHints ? std::nullopt : _pasteboard.string();
  _changeCountBefore = _pasteboard.changeCount();
  return EventHints{EventHints::Clock::now() + limit,
                    _copied && _isRunning ? *_copied : _pasteboard.contentsIdentifier()};
}

void CleanRequest::answered(const AnswerHints& hints) {
  if (!_isRunning) return;
  switch (hints.outcome) {
    case AnswerHints::Outcome::cleaned:
      if (!hints.clipboard) return takeAnswerWithoutHints();
      _result = hints.clipboard;
      return;
    case AnswerHints::Outcome::otherContents:
      _obstacle = Obstacle::otherContents;
      return;
    case AnswerHints::Outcome::unknown:
      return takeAnswerWithoutHints();
    case AnswerHints::Outcome::unchanged:
    case AnswerHints::Outcome::refused:
    case AnswerHints::Outcome::late:
      return;
  }
}

/// Without hints the clipboard tells whether the receiver, and no other program, changed it.
void CleanRequest::takeAnswerWithoutHints() {
  settle();
  const std::int64_t changes = _pasteboard.changeCount() - _changeCountBefore;
  if (changes == 0) return;
  const bool isTheReceivers =
      changes == 1 && _surroundings.clipboardOwner() == _receiver.processIdentifier;
  if (!isTheReceivers) {
    _obstacle = Obstacle::otherContents;
    return;
  }
  const std::string result = _pasteboard.contentsIdentifier();
  if (_textBefore && _pasteboard.string() == _textBefore) return;
  _result = result;
}

/// Waits until all changes of the clipboard up to now are known.
void CleanRequest::settle() const {
  [[maybe_unused]] const bool isSame = _pasteboard.hasContents(_pasteboard.contentsIdentifier());
}

bool CleanRequest::allowsPaste() {
  if (!_isRunning || !_isSent) return true;
  if (!_result) return false;
  if (!_pasteboard.hasContents(*_result)) {
    _obstacle = Obstacle::otherContents;
    return false;
  }
  if (_window != 0 && !_surroundings.isInputStillIn(_window)) {
    _obstacle = Obstacle::otherWindow;
    return false;
  }
  return true;
}

bool CleanRequest::declinesActivation() {
  if (!_isRunning || _window == 0 || _surroundings.isInputStillIn(_window)) return false;
  if (_result && _obstacle == Obstacle::none) _obstacle = Obstacle::otherWindow;
  return true;
}

}  // namespace qf
