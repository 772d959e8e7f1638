// SPDX-License-Identifier: Apache-2.0
#include "engine/window/Pages.h"

#include <QCoreApplication>

#include "engine/window/MenuPage.h"

namespace qf {
namespace {

QString title(const char* text) { return QCoreApplication::translate("qf::Pages", text); }

}  // namespace

std::vector<PageEntry> makePages(WindowModels& models) {
  return {
      {title(QT_TRANSLATE_NOOP("qf::Pages", "Menu")), "preferences-desktop", new MenuPage(models)},
  };
}

}  // namespace qf
