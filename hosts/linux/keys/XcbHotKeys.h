// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "host/HotKeys.h"
#include "hosts/linux/keys/KeyboardService.h"

namespace qf {

class MainQueue;

/// Hot keys by grabs of the X server. These are not counted, so the registrations are counted here;
/// an unused grab is dropped once the run loop has turned, so that one that is registered again
/// meanwhile is never let go.
///
/// A press belongs to the window that was active when it was made.
class XcbHotKeys : public HotKeys {
 public:
  /// What decides which presses are carried out; without it all are.
  struct Gate {
    /// Whether a request runs. Any thread.
    std::function<bool()> isBusy = [] { return false; };
    /// How many requests have begun. Main thread.
    std::function<std::uint64_t()> requestCount = [] { return 0; };
    /// Whether the input still is in the window of the press. Main thread.
    std::function<bool(std::uint32_t window)> isInputStillIn = [](std::uint32_t) { return true; };
  };

  /// The queue outlives the hot keys.
  explicit XcbHotKeys(MainQueue& mainQueue, const std::string& displayName = {});
  /// Before the first registration.
  void setGate(Gate gate) { _gate = std::move(gate); }
  ~XcbHotKeys() override;

  Availability availability() const override;
  Availability availability(std::uint32_t keyCode, std::uint32_t modifiers) const override;
  HotKeyStatus registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id,
                                   Ref& ref) override;
  void unregisterEventHotKey(Ref ref) override;
  void forgetRefusals() override { _refusals.clear(); }
  std::optional<std::uint64_t> installEventHandler(Handler handler) override;
  void removeEventHandler(std::uint64_t handler) override { _handlers.erase(handler); }

  const KeyboardService& keyboard() const { return *_keyboard; }

 private:
  struct Grab {
    std::map<Ref, HotKeyID> registrations;  ///< none: to be dropped
    bool isLost = false;                    ///< to another program, when the keyboard changed
  };

  struct Press {
    KeyCombination combination;
    std::uint32_t window;
  };

  void queue(const Press& press);
  void deliverNext();
  void carriedOut(std::uint64_t requestsBefore);
  void keepOne();
  void pressed(const KeyCombination& combination);
  void grabChanged(const KeyCombination& combination, KeyboardService::Grab answer);
  void refuse(const KeyCombination& combination, KeyboardService::Grab answer);
  void dropUnusedSoon();
  void dropUnused();
  void later(std::function<void(XcbHotKeys&)> work);

  MainQueue& _mainQueue;
  Gate _gate;
  std::deque<Press> _presses;  // to be carried out, one after the other
  bool _isUnderWay = false;
  std::atomic<std::size_t> _waitingPresses = 0;
  std::map<KeyCombination, Grab> _grabs;
  std::map<Ref, KeyCombination> _combinations;
  std::map<KeyCombination, std::string> _refusals;
  std::map<std::uint64_t, Handler> _handlers;
  std::uint64_t _lastNumber = 0;
  bool _dropsSoon = false;
  /// What queued work holds of this object, weakly.
  std::shared_ptr<XcbHotKeys*> _self = std::make_shared<XcbHotKeys*>(this);
  std::unique_ptr<KeyboardService> _keyboard;  // ends first: it calls the others
};

}  // namespace qf
