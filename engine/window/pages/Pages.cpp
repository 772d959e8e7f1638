// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/Pages.h"

#include <QCoreApplication>

#include "engine/window/pages/CleanersPage.h"
#include "engine/window/pages/GroupsPage.h"
#include "engine/window/pages/MenuPage.h"
#include "engine/window/pages/ShortcutsPage.h"
#include "engine/window/pages/StatusPage.h"

namespace qf {
namespace {

QString title(const char* text) { return QCoreApplication::translate("qf::Pages", text); }

}  // namespace

std::vector<PageEntry> makePages(WindowModels& models) {
  return {
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Menu")), "preferences-desktop", new MenuPage(models)},
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Shortcuts")), "preferences-desktop-keyboard",
       new ShortcutsPage(models)},
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Cleaners")), "edit-clear", new CleanersPage(models)},
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Groups")), "view-list-tree", new GroupsPage(models)},
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Status")), "dialog-information",
       new StatusPage(models)},
  };
}

}  // namespace qf
