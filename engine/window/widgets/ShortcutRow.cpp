// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/ShortcutRow.h"

#include <QHBoxLayout>
#include <utility>

#include "engine/window/RecorderHost.h"
#include "engine/window/models/ActionChoices.h"
#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"

namespace qf {
namespace {

std::optional<MASShortcut> shortcutOf(const QFKShortcutActionItem& item) {
  const MASShortcut shortcut(item.keycode, item.modifiers);
  return shortcut == MASShortcut(0, 0) ? std::nullopt : std::optional(shortcut);
}

}  // namespace

ShortcutRow::ShortcutRow(RecorderHost& host, ActionChoices& choices, bool isPalette)
    : _host(host),
      _choices(choices),
      _recorderView(new QtRecorderView({host.layout, host.announcer}, this)),
      _recorder(
          {*_recorderView, host.validator, host.keyNames, host.bundle, host.alert, host.sound}) {
  _recorder.setAcceptsFirstResponder(true);
  _recorder.shortcutValueChange = [this](MASShortcutView& recorder) {
    if (!_isShowing) emit recorded(recorder.shortcutValue());
  };
  connect(_recorderView, &QtRecorderView::availabilityChanged, this, &ShortcutRow::showState);
  layOut(isPalette);
}

ShortcutRow::~ShortcutRow() {
  // It may tell once more while the row goes.
  _recorderView->disconnect(this);
}

void ShortcutRow::layOut(bool isPalette) {
  auto* keysAndAction = new QHBoxLayout;
  keysAndAction->addWidget(_recorderView);
  auto* stateAndPlace = new QHBoxLayout;
  _stateLabel->setWordWrap(true);
  _stateLabel->setTextFormat(Qt::PlainText);
  stateAndPlace->addWidget(_stateLabel, 1);
  if (isPalette) {
    keysAndAction->addWidget(new QLabel(tr("shows the palette, or hides it")), 1);
  } else {
    _action = new SteadyBox;
    _action->setAccessibleDescription(tr("What the keys do"));
    _action->addItems({tr("apply the cleaner"), tr("show the menu of the group")});
    _choice = new ChoiceBox;
    keysAndAction->addWidget(_action);
    keysAndAction->addWidget(_choice, 1);
    addButtons(stateAndPlace);
    connect(_action, &QComboBox::activated, this, [this](int type) {
      if (type == _item.type) return;
      const bool isCleaner = type == QFKShortcutActionItem::appliesCleaner;
      emit actionChosen(type, isCleaner ? *QFKShortcutActionItem().typeValue
                                        : std::string(QFKShortcutActionItem::currentGroup));
    });
    connect(_choice, &ChoiceBox::chosen, this,
            [this](const QString& value) { emit actionChosen(_item.type, value.toStdString()); });
  }
  auto* lines = new QVBoxLayout(this);
  lines->addLayout(keysAndAction);
  lines->addLayout(stateAndPlace);
}

void ShortcutRow::addButtons(QHBoxLayout* line) {
  const auto add = [&](const QString& text, auto signal) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, signal);
    line->addWidget(button);
    return button;
  };
  _up = add(tr("Move up"), [this] { emit moveAsked(-1); });
  _down = add(tr("Move down"), [this] { emit moveAsked(1); });
  _remove = add(tr("Remove"), [this] { emit removeAsked(); });
}

void ShortcutRow::showItem(const QFKShortcutActionItem& item, bool isFirst, bool isLast) {
  _item = item;
  const bool wasShowing = std::exchange(_isShowing, true);
  if (_recorder.shortcutValue() != shortcutOf(item)) _recorder.setShortcutValue(shortcutOf(item));
  _isShowing = wasShowing;
  if (_action) showAction();
  setTitle(heading().replace('&', "&&"));
  if (!_action) return;
  _up->setEnabled(!isFirst);
  _down->setEnabled(!isLast);
}

void ShortcutRow::showAction() {
  const bool isGroup = _item.type == QFKShortcutActionItem::popsUpGroup;
  const bool isKnown = isGroup || _item.type == QFKShortcutActionItem::appliesCleaner;
  _action->setCurrentIndex(isKnown ? static_cast<int>(_item.type) : -1);
  _choice->setEnabled(isKnown);
  _choice->setPurpose(isGroup ? tr("Group") : tr("Cleaner"));
  _choice->showValue(isGroup ? _choices.groups() : _choices.cleaners(),
                     toQString(_item.typeValue.value_or("")));
}

QString ShortcutRow::heading() const {
  const QString title = _choice ? _choice->currentText() : tr("Palette");
  const auto shortcut = shortcutOf(_item);
  const auto keyboard = _host.keyboard.map();
  if (!shortcut || !keyboard) return title;
  const KeyCombination keys{shortcut->carbonKeyCode(), shortcut->carbonFlags()};
  return tr("%1 – %2", "action, keys").arg(title, toQString(keyboard->label(keys)));
}

void ShortcutRow::setState(const QString& state) {
  _state = state;
  showState();
}

void ShortcutRow::showState() {
  const Availability recorder = _recorderView->availability();
  _stateLabel->setText(recorder.isAvailable ? _state : reasonText(toQString(recorder.reason)));
}

QList<QWidget*> ShortcutRow::focusChain() const {
  if (!_action) return {_recorderView};
  return {_recorderView, _action, _choice, _up, _down, _remove};
}

}  // namespace qf
