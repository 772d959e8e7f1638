// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "host/Availability.h"
#include "hosts/linux/keys/KeyboardConnection.h"

namespace qf {

/// Grabs combinations and hears their presses, on a connection and a thread of its own: a press is
/// answered at once, also while the main thread is busy with the one before. Public operations from
/// any thread.
class KeyboardService {
 public:
  enum class Grab { granted, heldByAnother, noSuchKey, noAnswer };
  struct Handlers {
    /// Each runs on the service's thread.
    /// The window is the one that was active, by _NET_ACTIVE_WINDOW; 0 for none.
    std::function<void(const KeyCombination&, std::uint32_t activeWindow)> onPress;
    /// Another keyboard or layout came; a combination that was grabbed is so no more, or again.
    std::function<void(const KeyCombination&, Grab)> onGrabChanged;
  };

  /// An empty display name is the session's own (DISPLAY).
  KeyboardService(const std::string& displayName, Handlers handlers);
  ~KeyboardService();
  KeyboardService(const KeyboardService&) = delete;
  KeyboardService& operator=(const KeyboardService&) = delete;

  Availability availability() const;
  /// The keyboard of the moment; null where there is none.
  std::shared_ptr<const KeyboardMap> map() const;

  /// Waits for the server, 900 ms at most; a server that has left a call unanswered is not waited
  /// for again until it answers. A combination is grabbed once, however often it is asked for; a
  /// grab that was lost is tried again.
  Grab grab(const KeyCombination& combination);
  /// Returns at once.
  void ungrab(const KeyCombination& combination);

 private:
  /// A key with the modifiers that count.
  using Stroke = std::pair<std::uint8_t, std::uint16_t>;
  using Job = std::function<void()>;

  void post(Job job);
  // All below run on the service's thread.
  void run();
  void waitForInput() const;
  // Both answer whether there was anything to do.
  bool handleEvents();
  bool runJobs();
  void handlePress(const xcb_key_press_event_t& press);
  void keyboardChanged();
  Grab grabNow(const KeyCombination& combination);
  void ungrabNow(const KeyCombination& combination);
  void regrab(const KeyboardMap& before);
  void setMap(std::shared_ptr<const KeyboardMap> map);
  void end(std::string fault);

  KeyboardConnection _connection;
  const Handlers _handlers;
  int _wakeUp;  // an eventfd
  /// What was asked for, with the strokes that are grabbed for it; none where the grab was lost.
  std::map<KeyCombination, std::vector<Stroke>> _grabs;

  mutable std::mutex _mutex;  // guards what follows
  Availability _availability;
  std::shared_ptr<const KeyboardMap> _map;
  std::deque<Job> _jobs;
  bool _isEnding = false;
  std::future<Grab> _unanswered;  // main thread only

  std::thread _thread;
};

}  // namespace qf
