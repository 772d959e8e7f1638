// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/RecorderView.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/ShortcutBinding.h"

namespace qf {

class Alert;
class Bundle;
class MASShortcutValidator;
class ShortcutKeyNames;
class Sound;

/// A button that records a key combination: after a click it takes the next keys. Only one in the
/// process records at a time. Main thread.
class MASShortcutView : public RecorderViewDelegate {
 public:
  /// All outlive the view.
  struct Collaborators {
    RecorderView& view;
    MASShortcutValidator& sharedValidator;
    const ShortcutKeyNames& keyNames;
    const Bundle& bundle;
    Alert& alert;
    Sound& sound;
    UserDefaultsController* sharedUserDefaultsController = nullptr;  ///< null: never bound
  };
  /// May not destroy the view.
  using Change = std::function<void(MASShortcutView& view)>;

  explicit MASShortcutView(Collaborators collaborators);
  /// Also ends the recording of another view.
  ~MASShortcutView() override;
  MASShortcutView(const MASShortcutView&) = delete;
  MASShortcutView& operator=(const MASShortcutView&) = delete;

  const std::optional<MASShortcut>& shortcutValue() const { return _shortcutValue; }
  void setShortcutValue(const std::optional<MASShortcut>& shortcut);
  bool isEnabled() const override { return _isEnabled; }
  void setEnabled(bool enabled);
  bool isRecording() const override { return _isRecording; }
  void setRecording(bool recording);
  /// Whether the mouse is over the hint at the right.
  bool isHinting() const { return _isHinting; }
  void setHinting(bool hinting);
  RecorderStyle style() const { return _style; }
  void setStyle(RecorderStyle style);
  /// Shown before anything is recorded: the modifiers that are held.
  const std::string& shortcutPlaceholder() const { return _shortcutPlaceholder; }
  void setShortcutPlaceholder(const std::string& placeholder);
  bool acceptsFirstResponder() const override { return _acceptsFirstResponder; }
  void setAcceptsFirstResponder(bool accepts);
  void becomeFirstResponder() { setNeedsDisplay(); }
  void resignFirstResponder() { setNeedsDisplay(); }

  MASShortcutValidator* shortcutValidator;
  bool showsDeleteButton = true;
  Change shortcutValueChange;  ///< after every change of the value; may be empty

  // The user default that the value is bound to, or nothing. It stores an archive, or the
  // transformer's form.
  std::optional<std::string> associatedUserDefaultsKey() const;
  void setAssociatedUserDefaultsKey(const std::optional<std::string>& key);
  void setAssociatedUserDefaultsKey(const std::optional<std::string>& key,
                                    const ValueTransformer* transformer);
  void setAssociatedUserDefaultsKeyWithTransformerName(const std::optional<std::string>& key,
                                                       std::string_view transformerName);
  void propagateValue(const std::optional<MASShortcut>& value, std::string_view binding);

  std::vector<RecorderCell> drawRect() const override;
  Rect focusRingMaskBounds() const override { return _with.view.bounds(); }
  bool mouseDown(Point location) override;
  void mouseEntered() override { setHinting(true); }
  void mouseExited() override { setHinting(false); }
  void boundsDidChange() override;
  std::optional<std::string> stringForToolTip(std::size_t tag) const override;
  void updateTrackingAreas();
  void resetToolTips();
  /// Either may be null.
  void getShortcutRect(Rect* shortcutRect, Rect* hintRect) const;
  bool locationInShortcutRect(Point location) const;
  bool locationInHintRect(Point location) const;

  std::string accessibilityLabel() const override;
  std::string accessibilityHelp() const override;
  bool accessibilityPerformPress() override;

 protected:
  /// The common properties of all cells.
  virtual RecorderCell shortcutCellClass() const { return {}; }

 private:
  struct Shared;
  static Shared& shared();

  void setNeedsDisplay() { _with.view.setNeedsDisplay(); }
  void activateEventMonitoring(bool activates);
  void activateResignObserver(bool activates);
  bool handleEvent(const KeyEvent& event);
  /// Whether the key ends recording or moves the focus, instead of being recorded.
  std::optional<bool> handleCommandKey(const MASShortcut& shortcut);
  void record(const MASShortcut& shortcut);
  void tellTaken(const MASShortcut& shortcut, const std::string& explanation);
  void announceResult();

  RecorderCell drawInRect(const Rect& rect, std::string title, RecorderCell::Alignment alignment,
                          bool state) const;
  std::string titleWhileRecording() const;
  std::string localized(std::string_view key) const;

  Collaborators _with;
  std::optional<MASShortcut> _shortcutValue;
  std::string _shortcutPlaceholder;
  RecorderStyle _style = RecorderStyle::roundRect;
  bool _isEnabled = true;
  bool _isRecording = false;
  bool _isHinting = false;
  bool _acceptsFirstResponder = false;
  std::unique_ptr<ShortcutBinding> _binding;
  /// An open alert refers to this view weakly by this.
  std::shared_ptr<MASShortcutView*> _self = std::make_shared<MASShortcutView*>(this);
};

}  // namespace qf
