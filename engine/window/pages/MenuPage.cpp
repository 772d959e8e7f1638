// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/MenuPage.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QSignalBlocker>

#include "engine/window/models/WindowModels.h"
#include "host/Bundle.h"
#include "hosts/linux/request/RequestDefaults.h"
#include "hosts/qt/MenuColor.h"
#include "hosts/qt/QtPaletteWindows.h"
#include "hosts/qt/TemplateIcon.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

constexpr int iconCount = 6, iconsInRow = 3, iconSize = 32;
constexpr int allGroups = 1;

QString iconFile(int id) { return QString("qfmenu-icon%1").arg(id, 2, 10, QChar('0')); }

std::filesystem::path autostartPattern(const Bundle& bundle) {
  return bundle.resource("autostart", "desktop").value_or("");
}

/// Checks none where none has the number. The Tab key goes to the checked one, arrows to the
/// others.
void check(QButtonGroup* group, int id) {
  const QSignalBlocker blocker(group);
  QAbstractButton* wanted = group->button(id);
  if (wanted) wanted->setChecked(true);
  group->setExclusive(wanted != nullptr);
  for (QAbstractButton* button : group->buttons()) {
    if (!wanted) button->setChecked(false);
    button->setFocusPolicy(!wanted || button == wanted ? Qt::StrongFocus : Qt::ClickFocus);
  }
  group->setExclusive(true);
}

}  // namespace

MenuPage::MenuPage(WindowModels& models)
    : _models(models),
      _autostart(Autostart::usualPlaces(autostartPattern(models.host.bundle))),
      _leavesWholeTexts(std::string(agentBundleIdentifier), std::string(leavesWholeTextsDefault)) {
  auto* column = new QVBoxLayout(this);
  for (QGroupBox* box : {iconBox(), styleBox(), wholeTextBox(), startBox(), paletteBox()})
    column->addWidget(box);
  column->addStretch();
  tintIcons();
  connect(&_models.menuSettings, &MenuSettings::changed, this, &MenuPage::showSettings);
  // Toggled, not clicked: that is what a screen reader does.
  connect(_icons, &QButtonGroup::idToggled, this, [this](int id, bool isChecked) {
    if (isChecked) change([id](auto& settings) { settings.setMenuIconID(id); });
  });
  connect(_styles, &QButtonGroup::idToggled, this, [this](int id, bool isChecked) {
    if (isChecked) change([id](auto& settings) { settings.setMenuStyle(id); });
  });
}

void MenuPage::change(const MenuSettings::Edit& edit) { report(_models.menuSettings.change(edit)); }

QGroupBox* MenuPage::iconBox() {
  const QString names[iconCount] = {tr("Folded page"), tr("Broom"),    tr("Quill"),
                                    tr("Sparkle"),     tr("Scissors"), tr("Letter Q")};
  auto* box = new QGroupBox(tr("Icon in the tray"));
  auto* grid = new QGridLayout(box);
  for (int id = 0; id < iconCount; ++id) {
    auto* button = new QRadioButton(names[id]);
    button->setIconSize({iconSize, iconSize});
    _icons->addButton(button, id);
    grid->addWidget(button, id / iconsInRow, id % iconsInRow);
  }
  return box;
}

QGroupBox* MenuPage::styleBox() {
  auto* box = new QGroupBox(tr("Menu"));
  auto* column = new QVBoxLayout(box);
  const auto add = [&](int id, const QString& text) {
    auto* button = new QRadioButton(text);
    _styles->addButton(button, id);
    column->addWidget(button);
  };
  add(0, tr("Shows one &group; the others can be chosen"));
  add(allGroups, tr("Shows &all groups as submenus"));
  return box;
}

QGroupBox* MenuPage::wholeTextBox() {
  auto* box = new QGroupBox(tr("Without a selection"));
  auto* column = new QVBoxLayout(box);
  const auto add = [&](int leaves, const QString& text) {
    auto* button = new QRadioButton(text);
    _wholeTexts->addButton(button, leaves);
    column->addWidget(button);
  };
  add(0, tr("Clean the &whole text"));
  add(1, tr("&Do nothing"));
  connect(_wholeTexts, &QButtonGroup::idToggled, this, [this](int leaves, bool isChecked) {
    if (isChecked) report(_leavesWholeTexts.setOn(leaves != 0));
  });
  return box;
}

QGroupBox* MenuPage::startBox() {
  auto* box = new QGroupBox(tr("Start"));
  auto* column = new QVBoxLayout(box);
  _startsAtLogin = new QCheckBox(tr("Show the &menu in the tray after login"));
  connect(_startsAtLogin, &QCheckBox::toggled, this, [this](bool isOn) {
    report(_autostart.setOn(isOn));
    refresh();
  });
  column->addWidget(_startsAtLogin);
  const std::string shared(applicationGroupIdentifier);
  column->addWidget(switchFor(tr("Start Quenfold in the &background, without this window"),
                              {shared, std::string(launchAsAgentDefault)}));
  column->addWidget(switchFor(tr("Always start Quenfold with these &preferences"),
                              {shared, std::string(showPreferencesDefault)}));
  return box;
}

QGroupBox* MenuPage::paletteBox() {
  auto* box = new QGroupBox(tr("Palette"));
  auto* column = new QVBoxLayout(box);
  column->addWidget(
      switchFor(tr("Takes the &keyboard when it appears"),
                {std::string(agentBundleIdentifier), std::string(paletteTakesKeyboardDefault)}));
  return box;
}

QCheckBox* MenuPage::switchFor(const QString& text, const StoredSwitch& stored) {
  auto* box = new QCheckBox(text);
  connect(box, &QCheckBox::toggled, this, [this, stored](bool isOn) {
    report(stored.setOn(isOn));
    refresh();
  });
  _switches.emplace_back(box, stored);
  return box;
}

void MenuPage::refresh() {
  _models.menuSettings.read();
  check(_wholeTexts, _leavesWholeTexts.isOn() ? 1 : 0);
  const auto show = [](QCheckBox* box, bool isOn) {
    const QSignalBlocker blocker(box);
    box->setChecked(isOn);
  };
  show(_startsAtLogin, _autostart.isOn());
  for (const auto& [box, stored] : _switches) show(box, stored.isOn());
}

void MenuPage::showSettings() {
  const QFKMenuSettingsManager& settings = _models.menuSettings.current();
  check(_icons, static_cast<int>(settings.menuIconID()));
  check(_styles, settings.menuStyle() == allGroups ? allGroups : 0);
}

void MenuPage::tintIcons() {
  const IconTint tint{
      isLight(palette().color(QPalette::Window)) ? IconTint::Panel::light : IconTint::Panel::dark,
      IconTint::State::normal};
  for (QAbstractButton* button : _icons->buttons()) {
    auto image = _models.host.bundle.imageNamed(iconFile(_icons->id(button)).toStdString());
    if (!image) continue;
    image->isTemplate = true;
    button->setIcon(iconForImage(*image, tint));
  }
}

void MenuPage::changeEvent(QEvent* event) {
  Page::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) tintIcons();
}

}  // namespace qf
