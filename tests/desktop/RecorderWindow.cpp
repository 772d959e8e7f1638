// SPDX-License-Identifier: Apache-2.0
// A window with two recorders and a text field, which prints what comes of them.
#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdio>

#include "host/EventState.h"
#include "host/Menu.h"
#include "hosts/linux/accessibility/bus/AtspiAnnouncer.h"
#include "hosts/linux/files/XdgBundle.h"
#include "hosts/linux/keys/DesktopHotKeys.h"
#include "hosts/linux/keys/XkbKeyboardLayout.h"
#include "hosts/qt/AccessibleRecorder.h"
#include "hosts/qt/QtAlert.h"
#include "hosts/qt/QtApplication.h"
#include "hosts/qt/QtRecorderView.h"
#include "hosts/qt/QtSound.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/MASShortcutView.h"
#include "shortcuts/ShortcutKeyNames.h"

namespace qf {
namespace {

void print(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

/// What a window needs to record in.
struct Services {
  KeyboardService keyboard{"", {}};
  XkbKeyboardLayout layout{keyboard};
  DesktopHotKeys desktopHotKeys{QDBusConnection::sessionBus(), keyboard};
  XdgBundle bundle;
  ShortcutKeyNames names{layout, bundle};
  Menu mainMenu;
  MASShortcutValidator validator{
      {.symbolicHotKeys = desktopHotKeys, .keyNames = names, .bundle = bundle, .mainMenu = [this] {
         return &mainMenu;
       }}};
  AtspiAnnouncer announcer;
  QtAlert alert;
  QtSound sound;
};

class Recorder {
 public:
  Recorder(Services& services, const std::string& name, QWidget* parent)
      : widget(new QtRecorderView({services.layout, services.announcer}, parent)),
        view({*widget, services.validator, services.names, services.bundle, services.alert,
              services.sound}) {
    view.setAcceptsFirstResponder(true);
    view.shortcutValueChange = [name, &services](MASShortcutView& changed) {
      const auto& value = changed.shortcutValue();
      print(name + " " + (value ? value->description(services.names) : "none"));
    };
  }

  QtRecorderView* widget;
  MASShortcutView view;
};

int run(int argc, char** argv) {
  showRecordersToAccessibility();
  QtApplication application(argc, argv);
  Services services;
  auto find = std::make_shared<MenuItem>("Find <b> & Go", "", "f");
  find->keyEquivalentModifierMask = modifier::control;
  services.mainMenu.addItem(find);

  QMainWindow window;
  window.setWindowTitle("Recorders");
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  Recorder first(services, "first", page), second(services, "second", page);
  auto* field = new QLineEdit;
  auto* hide = new QPushButton("Hide");
  for (QWidget* widget : {static_cast<QWidget*>(first.widget), static_cast<QWidget*>(second.widget),
                          static_cast<QWidget*>(field), static_cast<QWidget*>(hide)}) {
    rows->addWidget(widget);
  }
  QObject::connect(hide, &QPushButton::clicked, first.widget, &QWidget::hide);
  for (const char* name : {"Ctrl+W", "Ctrl+Q", "Ctrl+Alt+K"}) {
    auto* action = new QAction(&window);
    action->setShortcut(QKeySequence(name));
    QObject::connect(action, &QAction::triggered, [name] { print(name); });
    window.addAction(action);
  }
  window.setCentralWidget(page);
  window.show();
  field->setFocus();
  return QApplication::exec();
}

}  // namespace
}  // namespace qf

int main(int argc, char** argv) { return qf::run(argc, argv); }
