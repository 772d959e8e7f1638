// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASShortcutView.h"

#include <utility>

#include "host/Alert.h"
#include "host/Bundle.h"
#include "host/EventState.h"
#include "host/Sound.h"
#include "shortcuts/FilledIn.h"
#include "shortcuts/KeyCode.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/RecorderAreas.h"
#include "shortcuts/ShortcutArchiveTransformer.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "shortcuts/ValueTransformer.h"

namespace qf {
namespace {

constexpr const char* valueBinding = "shortcutValue";
constexpr std::string_view keyPathPrefix = "values.";

constexpr const char* escapeGlyph = "⎋";
constexpr const char* deleteGlyph = "✕";

constexpr int highPriority = 90;

constexpr std::size_t shortcutToolTip = 0;
constexpr std::size_t hintToolTip = 1;

}  // namespace

/// Shared by all views: the recording view, and the window that receives the events for it.
struct MASShortcutView::Shared {
  MASShortcutView* recordingView = nullptr;
  RecorderView* monitor = nullptr;
  RecorderView* resignObserver = nullptr;
};

MASShortcutView::Shared& MASShortcutView::shared() {
  static Shared state;
  return state;
}

MASShortcutView::MASShortcutView(Collaborators collaborators)
    : shortcutValidator(&collaborators.sharedValidator), _with(collaborators) {
  _with.view.setDelegate(this);
  updateTrackingAreas();
  setNeedsDisplay();
}

MASShortcutView::~MASShortcutView() {
  activateEventMonitoring(false);
  activateResignObserver(false);
  if (shared().recordingView == this) shared().recordingView = nullptr;
  _with.view.setDelegate(nullptr);
}

void MASShortcutView::setShortcutValue(const std::optional<MASShortcut>& shortcut) {
  _shortcutValue = shortcut;
  resetToolTips();
  setNeedsDisplay();
  propagateValue(shortcut, valueBinding);
  if (shortcutValueChange) shortcutValueChange(*this);
}

void MASShortcutView::setEnabled(bool enabled) {
  if (_isEnabled == enabled) return;
  _isEnabled = enabled;
  updateTrackingAreas();
  setRecording(false);
  setNeedsDisplay();
}

void MASShortcutView::setHinting(bool hinting) {
  if (_isHinting == hinting) return;
  _isHinting = hinting;
  setNeedsDisplay();
}

void MASShortcutView::setStyle(RecorderStyle style) {
  if (_style == style) return;
  _style = style;
  setNeedsDisplay();
}

void MASShortcutView::setShortcutPlaceholder(const std::string& placeholder) {
  _shortcutPlaceholder = placeholder;
  setNeedsDisplay();
}

void MASShortcutView::setAcceptsFirstResponder(bool accepts) {
  _acceptsFirstResponder = accepts;
  setNeedsDisplay();
}

void MASShortcutView::setRecording(bool recording) {
  if (recording && shared().recordingView != this) {
    if (shared().recordingView) shared().recordingView->setRecording(false);
    shared().recordingView = this;
  }
  if (recording && !_isEnabled) return;
  if (_isRecording == recording) return;
  _isRecording = recording;
  setShortcutPlaceholder("");
  resetToolTips();
  activateEventMonitoring(recording);
  activateResignObserver(recording);
  setNeedsDisplay();
  if (!recording) announceResult();
}

void MASShortcutView::announceResult() {
  _with.view.postAnnouncement(localized(_shortcutValue ? "Shortcut set" : "Shortcut cleared"),
                              highPriority);
}

void MASShortcutView::activateEventMonitoring(bool activates) {
  RecorderView*& monitor = shared().monitor;
  if (activates == (monitor != nullptr)) return;
  if (activates) {
    monitor = &_with.view;
    monitor->setEventMonitor([this](const KeyEvent& event) { return handleEvent(event); });
  } else {
    std::exchange(monitor, nullptr)->setEventMonitor({});
  }
}

void MASShortcutView::activateResignObserver(bool activates) {
  RecorderView*& observer = shared().resignObserver;
  if (activates == (observer != nullptr)) return;
  if (activates) {
    observer = &_with.view;
    observer->setResignKeyObserver([this] { setRecording(false); });
  } else {
    std::exchange(observer, nullptr)->setResignKeyObserver({});
  }
}

bool MASShortcutView::handleEvent(const KeyEvent& event) {
  const auto shortcut = MASShortcut::shortcutWithEvent(event);
  if (const auto isConsumed = handleCommandKey(shortcut)) return *isConsumed;
  if (shortcut.keyCodeString(_with.keyNames).value_or("").empty()) {
    setShortcutPlaceholder(shortcut.modifierFlagsString());
  } else {
    record(shortcut);
  }
  return true;
}

std::optional<bool> MASShortcutView::handleCommandKey(const MASShortcut& shortcut) {
  const std::uint64_t key = shortcut.keyCode();
  if (key == keyCode::tab) return false;
  if (shortcut.modifierFlags() == 0) {
    const bool deletes = key == keyCode::backspace || key == keyCode::forwardDelete;
    if (!deletes && key != keyCode::escape) return std::nullopt;
    if (deletes) setShortcutValue(std::nullopt);
    setRecording(false);
    return true;
  }
  const bool closesOrQuits = key == keyCode::w || key == keyCode::q;
  if (shortcut.modifierFlags() != modifier::command || !closesOrQuits) return std::nullopt;
  setRecording(false);
  return false;
}

void MASShortcutView::record(const MASShortcut& shortcut) {
  std::string explanation;
  if (!shortcutValidator->isShortcutValid(shortcut)) {
    _with.sound.beep();
  } else if (shortcutValidator->isShortcutAlreadyTakenBySystem(shortcut, &explanation)) {
    tellTaken(shortcut, explanation);
  } else {
    setShortcutValue(shortcut);
    setRecording(false);
  }
}

void MASShortcutView::tellTaken(const MASShortcut& shortcut, const std::string& explanation) {
  activateResignObserver(false);
  activateEventMonitoring(false);
  const Alert::Message message{
      .messageText = filledIn(localized("The key combination %@ cannot be used"),
                              shortcut.description(_with.keyNames)),
      .informativeText = explanation,
      .buttonTitle = localized("OK"),
  };
  _with.alert.runCritical(message, [self = std::weak_ptr(_self)] {
    const auto view = self.lock();
    if (!view || !(*view)->_isRecording) return;
    (*view)->setShortcutPlaceholder("");
    (*view)->activateResignObserver(true);
    (*view)->activateEventMonitoring(true);
  });
}

std::vector<RecorderCell> MASShortcutView::drawRect() const {
  using enum RecorderCell::Alignment;
  const Rect bounds = _with.view.bounds();
  Rect shortcutRect;
  getShortcutRect(&shortcutRect, nullptr);
  if (!_shortcutValue && !_isRecording) {
    return {drawInRect(bounds, localized("Record Shortcut"), center, false)};
  }
  std::vector<RecorderCell> cells;
  if (_isRecording) {
    cells.push_back(drawInRect(bounds, escapeGlyph, right, false));
  } else if (showsDeleteButton) {
    cells.push_back(drawInRect(bounds, deleteGlyph, right, false));
  }
  cells.push_back(
      drawInRect(shortcutRect,
                 _isRecording ? titleWhileRecording() : _shortcutValue->description(_with.keyNames),
                 center, _isRecording));
  return cells;
}

std::string MASShortcutView::titleWhileRecording() const {
  if (_isHinting) return localized(_shortcutValue ? "Use Old Shortcut" : "Cancel");
  if (!_shortcutPlaceholder.empty()) return _shortcutPlaceholder;
  return localized(_shortcutValue ? "Type New Shortcut" : "Type Shortcut");
}

RecorderCell MASShortcutView::drawInRect(const Rect& rect, std::string title,
                                         RecorderCell::Alignment alignment, bool state) const {
  RecorderCell result = shortcutCellClass();
  result.title = std::move(title);
  result.alignment = alignment;
  result.isOn = state;
  result.isEnabled = _isEnabled;
  result.style = _style;
  result.fontSize = recorderFontSize;
  result.frame = rect;
  result.frame.origin.y += recorderFrameShift(_style);
  return result;
}

void MASShortcutView::getShortcutRect(Rect* shortcutRect, Rect* hintRect) const {
  const RecorderAreas areas = recorderAreas(_with.view.bounds(), _style);
  if (shortcutRect) *shortcutRect = areas.shortcut;
  if (hintRect) *hintRect = areas.hint;
}

bool MASShortcutView::locationInShortcutRect(Point location) const {
  Rect rect;
  getShortcutRect(&rect, nullptr);
  return contains(rect, location);
}

bool MASShortcutView::locationInHintRect(Point location) const {
  Rect rect;
  getShortcutRect(nullptr, &rect);
  return contains(rect, location);
}

bool MASShortcutView::mouseDown(Point location) {
  if (!_isEnabled) return false;
  if (_isRecording) {
    if (locationInHintRect(location)) setRecording(false);
  } else if (!_shortcutValue || locationInShortcutRect(location)) {
    setRecording(true);
  } else {
    setShortcutValue(std::nullopt);
  }
  return true;
}

void MASShortcutView::boundsDidChange() {
  updateTrackingAreas();
  resetToolTips();
}

void MASShortcutView::updateTrackingAreas() {
  Rect hint;
  getShortcutRect(nullptr, &hint);
  _with.view.setTrackingArea(_isEnabled ? std::optional(hint) : std::nullopt);
}

void MASShortcutView::resetToolTips() {
  std::vector<Rect> areas;
  if (_shortcutValue && !_isRecording && _isEnabled) {
    areas.resize(2);
    getShortcutRect(&areas[shortcutToolTip], &areas[hintToolTip]);
  }
  _with.view.setToolTips(std::move(areas));
}

std::optional<std::string> MASShortcutView::stringForToolTip(std::size_t tag) const {
  if (tag == shortcutToolTip) return localized("Click to record new shortcut");
  if (tag == hintToolTip) return localized("Delete shortcut");
  return std::nullopt;
}

std::string MASShortcutView::accessibilityLabel() const {
  const std::string shortcut =
      _shortcutValue ? _shortcutValue->description(_with.keyNames) : localized("Empty");
  return shortcut + filledIn(" %@", localized("keyboard shortcut"));
}

std::string MASShortcutView::accessibilityHelp() const {
  return localized(
      "To record a new shortcut, click this button, and then type the new shortcut, or press "
      "delete to clear an existing shortcut.");
}

bool MASShortcutView::accessibilityPerformPress() {
  if (_isRecording) return false;
  setRecording(true);
  return true;
}

std::string MASShortcutView::localized(std::string_view key) const {
  return _with.bundle.localizedString(key);
}

std::optional<std::string> MASShortcutView::associatedUserDefaultsKey() const {
  if (!_binding || !_binding->info().observedKeyPath) return std::nullopt;
  std::string key = *_binding->info().observedKeyPath;
  for (auto found = key.find(keyPathPrefix); found != std::string::npos;
       found = key.find(keyPathPrefix, found)) {
    key.erase(found, keyPathPrefix.size());
  }
  return key;
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<std::string>& key) {
  setAssociatedUserDefaultsKeyWithTransformerName(key, ShortcutArchiveTransformer::name);
}

void MASShortcutView::setAssociatedUserDefaultsKeyWithTransformerName(
    const std::optional<std::string>& key, std::string_view transformerName) {
  setAssociatedUserDefaultsKey(key, ValueTransformer::valueTransformerForName(transformerName));
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<std::string>& key,
                                                   const ValueTransformer* transformer) {
  _binding.reset();
  UserDefaultsController* controller = _with.sharedUserDefaultsController;
  if (!key || !controller) return;
  _binding = std::make_unique<ShortcutBinding>(
      ShortcutBinding::Info{.name = valueBinding,
                            .observedObject = controller,
                            .observedKeyPath = std::string(keyPathPrefix) + *key,
                            .options = {transformer, std::nullopt}},
      [this](const std::optional<MASShortcut>& shortcut) { setShortcutValue(shortcut); });
}

void MASShortcutView::propagateValue(const std::optional<MASShortcut>& value,
                                     std::string_view binding) {
  if (_binding && binding == valueBinding) _binding->propagateValue(value);
}

}  // namespace qf
