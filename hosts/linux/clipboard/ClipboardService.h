// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/Availability.h"
#include "hosts/linux/clipboard/ClipboardContents.h"
#include "hosts/linux/clipboard/ClipboardOwnership.h"
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
  /// When an application gave up the primary selection last, which many do when they drop what was
  /// selected; the beginning of the clock before the first time.
  std::chrono::steady_clock::time_point primaryGivenUp() const { return _primaryGivenUp; }
  /// The window by which we own the clipboard.
  xcb_window_t window() const { return _window; }
  /// By the last notice of a change that has been handled.
  ClipboardOwnership ownership() const;
  /// By all changes that the server has made up to this call. Nothing when the server is lost, or
  /// did not answer within 2 s.
  std::optional<ClipboardOwnership> settledOwnership() const;
  /// Takes the clipboard, where an identifier is given only from those contents: a change by
  /// another application that comes first wins, whenever it comes. Nothing when the clipboard was
  /// not taken, or the server did not answer within 2 s.
  std::optional<ClipboardOwnership> own(std::shared_ptr<const ClipboardContents> contents,
                                        std::optional<std::string_view> from = std::nullopt);

 private:
  using Clock = XcbConnection::Clock;

  struct Wish {
    std::shared_ptr<const ClipboardContents> contents;
    std::optional<std::string> from;
    Clock::time_point deadline;
    std::promise<std::optional<ClipboardOwnership>> granted;
  };
  using Inquiry = std::promise<std::optional<ClipboardOwnership>>;

  // All below run on the service's thread.
  void run();
  void serveUntil(const std::function<bool()>& isDone, std::optional<Clock::time_point> deadline);
  void waitForInput(std::optional<Clock::time_point> deadline) const;
  bool handleEvents();
  void settle();
  void answerInquiries();
  void handle(const xcb_generic_event_t& event);
  void ownerChanged(const xcb_xfixes_selection_notify_event_t& notice);
  void askForTime();
  void touchTime();
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

  std::atomic<Clock::time_point> _primaryGivenUp = Clock::time_point();
  std::unique_ptr<Wish> _wish;                        // waits for the server's time
  std::shared_ptr<const ClipboardContents> _pending;  // waits for the server's notice
  std::optional<ClipboardOwnership> _taken;           // by the wish that is being granted
  bool _managerAnswered = false;

  std::atomic<std::int64_t> _changeCount = 0;
  mutable std::mutex _mutex;  // guards what follows
  Availability _availability;
  std::shared_ptr<const ClipboardContents> _contents;
  ClipboardOwnership _ownership;
  std::deque<std::unique_ptr<Wish>> _wishes;
  mutable std::vector<Inquiry> _inquiries;
  bool _isEnding = false;

  std::thread _thread;
};

}  // namespace qf
