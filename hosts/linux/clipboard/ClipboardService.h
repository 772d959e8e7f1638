// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "host/Availability.h"
#include "hosts/linux/clipboard/ClipboardContents.h"
#include "hosts/linux/clipboard/ClipboardTransfers.h"

namespace qf {

/// Watches who owns the clipboard, owns it for us and serves its contents, on a connection and a
/// thread of its own that waits for no application. Public operations from any thread.
class ClipboardService {
 public:
  explicit ClipboardService(const std::string& displayName);
  /// Where a clipboard manager runs and we own the clipboard, the manager gets the contents first;
  /// that and transfers under way may take 1 s.
  ~ClipboardService();
  ClipboardService(const ClipboardService&) = delete;
  ClipboardService& operator=(const ClipboardService&) = delete;

  Availability availability() const;
  std::int64_t changeCount() const { return _changeCount; }
  /// What we own; null while another application owns the clipboard, or nobody. Whoever has seen a
  /// change count sees the contents of that change or a later one.
  std::shared_ptr<const ClipboardContents> contents() const;
  /// The window by which we own the clipboard.
  xcb_window_t window() const { return _window; }
  /// Takes the clipboard. False when the server refused, or did not answer within 2 s.
  bool own(std::shared_ptr<const ClipboardContents> contents);

 private:
  using Clock = XcbConnection::Clock;

  struct Wish {
    std::shared_ptr<const ClipboardContents> contents;
    Clock::time_point deadline;
    std::promise<bool> isGranted;
  };

  // All below run on the service's thread.
  void run();
  void serveUntil(const std::function<bool()>& isDone, std::optional<Clock::time_point> deadline);
  void waitForInput(std::optional<Clock::time_point> deadline) const;
  bool handleEvents();
  void handle(const xcb_generic_event_t& event);
  void ownerChanged(const xcb_xfixes_selection_notify_event_t& notice);
  void askForTime();
  void takeOwnership(xcb_timestamp_t time);
  void handToManager();
  void finish();

  void wake() const;
  bool isEnding() const;

  XcbConnection _connection;
  const ClipboardAtoms _atoms;
  xcb_window_t _window = XCB_WINDOW_NONE;
  ClipboardTransfers _transfers;
  int _wakeUp;  // an eventfd

  std::unique_ptr<Wish> _wish;                        // waits for the server's time
  std::shared_ptr<const ClipboardContents> _pending;  // waits for the server's notice
  bool _isTaken = false;
  xcb_timestamp_t _ownedSince = XCB_CURRENT_TIME;
  bool _managerAnswered = false;

  std::atomic<std::int64_t> _changeCount = 0;
  mutable std::mutex _mutex;  // guards what follows
  Availability _availability;
  std::shared_ptr<const ClipboardContents> _contents;
  std::deque<std::unique_ptr<Wish>> _wishes;
  bool _isEnding = false;

  std::thread _thread;
};

}  // namespace qf
