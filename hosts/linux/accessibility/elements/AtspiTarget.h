// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/elements/AtspiBinding.h"
#include "hosts/linux/accessibility/elements/AtspiCleaning.h"
#include "hosts/linux/accessibility/elements/AtspiLastFailure.h"
#include "hosts/linux/accessibility/elements/AtspiWindows.h"
#include "hosts/linux/accessibility/reach/AtspiFocusedText.h"

namespace qf {

class Pasteboard;

/// The application that one request acts on. Its window with the input, its focus, its text and its
/// menu bar are each found once, so that everything happens in the same place. Every element of the
/// request shares it. Main thread.
class AtspiTarget {
 public:
  /// All outlive the target.
  struct Services {
    AtspiBus& bus;
    AtspiWindows& windows;
    AtspiLastFailure& failure;
    Pasteboard& pasteboard;
    const AtspiCleaning& cleaning;
  };

  AtspiTarget(const Services& services, std::int32_t processIdentifier);
  /// The end of the request: how it went is told.
  ~AtspiTarget();
  AtspiTarget(const AtspiTarget&) = delete;
  AtspiTarget& operator=(const AtspiTarget&) = delete;

  AtspiRequest& request() { return _request; }
  /// Nothing when the process has ended.
  std::optional<std::int32_t> processIdentifier();
  Pasteboard& pasteboard() { return _services.pasteboard; }

  /// `why` ends a sentence that begins with "because". Where the application does not answer any
  /// more, that is the reason.
  void noteFailure(const std::string& why);
  void clearFailure() { _services.failure.clear(); }
  void noteAbsence();

  // What happens around Copy, Paste and Select All.

  /// Before Copy is looked at: selects what was pasted here last, where it stands as it was pasted.
  void prepareCopy();
  /// Whether a selection was dropped as the request began.
  bool hasDroppedSelection() const { return _binding.hasDroppedSelection(); }
  /// Copy has changed the clipboard.
  void noteCopy();
  /// False where nothing is selected and the whole text must not be taken: the request is over
  /// then, and says so.
  bool allowsWholeText();
  void noteWholeText() { _binding.noteWholeText(); }
  bool isOver() const { return _isOver; }
  /// False where the result is not to be pasted, or not here.
  bool allowsPaste();
  void notePaste();

  /// Null where there is none.
  const std::shared_ptr<AtspiWindow>& inputWindow();
  bool isInputWindow(const AtspiReference& object);
  /// Null where no object has the focus, or it is not known which. There is an input window.
  const AtspiReference& focusedObject();
  /// What has the focus once the window has the input, which is waited for 500 ms at most: without
  /// it applications do not tell, and another object may have had the focus before.
  const AtspiFocusedText& focusedText();
  /// Null where there is no window. A window without a menu bar has one with our own menu alone.
  std::shared_ptr<AtspiMenuTree> menuTree();

  /// Whether the text with the focus is asked itself, since the application's menu acts on another.
  bool isTextAskedItself() const { return _isTextAskedItself; }
  void askTextItself() { _isTextAskedItself = true; }

 private:
  bool hasEnded() const;
  AtspiReference settledFocus();
  void noteUnpasted(CleanRequest::Obstacle obstacle);
  void tellWholeText() const;

  Services _services;
  AtspiRequest _request;
  std::optional<AtspiWindows::Choice> _choice;
  std::shared_ptr<AtspiMenuTree> _menuTree;
  std::optional<AtspiFocusedText> _focusedText;
  bool _isTextAskedItself = false;
  AtspiBinding _binding;
  bool _isOver = false;
};

using AtspiTargetRef = std::shared_ptr<AtspiTarget>;

}  // namespace qf
