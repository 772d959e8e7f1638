// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include "hosts/linux/bus/EventHintsExchange.h"
#include "hosts/linux/request/RequestSurroundings.h"

namespace qf {

class Pasteboard;

/// One request to clean a text, from Copy over the command to Paste, bound to what it began with:
/// the window and the clipboard's contents right after Copy. It decides whether the command is
/// still to be sent, and whether the answer is still to be pasted. A request without a command,
/// which copies or pastes only, is not bound. Main thread, unless stated otherwise.
class CleanRequest : public EventHintsExchange {
 public:
  /// Why a request that went well so far ended without a paste.
  enum class Obstacle {
    none,
    otherContents,  ///< somebody changed the clipboard meanwhile
    otherPlace,     ///< caret, selection or focus moved; the result is on the clipboard
    otherWindow     ///< the person went to another window; the result is on the clipboard
  };

  /// Both outlive this.
  CleanRequest(Pasteboard& pasteboard, const RequestSurroundings& surroundings)
      : _pasteboard(pasteboard), _surroundings(surroundings) {}

  /// Starts a request and answers its number. One that runs still ends by it.
  std::uint64_t begin();
  /// What stood in its way; `none` where another request has begun since.
  Obstacle end(std::uint64_t number);
  /// Any thread.
  bool isRunning() const { return _isRunning; }
  /// How many have begun.
  std::uint64_t count() const { return _number; }

  /// Whether a selection was given up as the request began: some applications drop theirs when
  /// the press of a shortcut takes the keyboard from them for a moment.
  bool hasDroppedSelection() const;
  /// Right after Copy has changed the clipboard.
  void noteCopy();
  /// Whether Paste may be pressed, by clipboard and window.
  bool allowsPaste();
  /// The text is not as Copy left it.
  void noteMoved() { _obstacle = Obstacle::otherPlace; }
  /// Whether the person has left the window for another application's, which keeps the input then.
  bool declinesActivation();
  /// `Pasteboard::contentsIdentifier` of the result; nothing where there is none to paste.
  const std::optional<std::string>& result() const { return _result; }

  void willSend() override;
  std::optional<EventHints> hintsOfEvent(const Receiver& receiver,
                                         std::chrono::milliseconds limit) override;
  void answered(const AnswerHints& hints) override;

 private:
  void takeAnswerWithoutHints();
  void settle() const;

  Pasteboard& _pasteboard;
  const RequestSurroundings& _surroundings;
  std::atomic<bool> _isRunning = false;
  std::uint64_t _number = 0;

  // Of the request that runs.
  std::chrono::steady_clock::time_point _begun;
  RequestSurroundings::Window _window = 0;
  std::optional<std::string> _copied;  ///< the contents that Copy brought
  bool _isSent = false;
  std::optional<std::string> _result;
  Obstacle _obstacle = Obstacle::none;

  // Of the event that was sent last, for an answer without hints.
  Receiver _receiver;
  std::optional<std::string> _textBefore;
  std::int64_t _changeCountBefore = 0;
};

}  // namespace qf
