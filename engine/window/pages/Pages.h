// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QString>
#include <vector>

namespace qf {

class Page;
struct WindowModels;

struct PageEntry {
  QString title;
  const char* iconName;  ///< of the icon theme; without one there, none is shown
  Page* page;            ///< its widget parent owns it
};

/// Every page of the window in its order, the preferences first. The models outlive the pages.
std::vector<PageEntry> makePages(WindowModels& models);

}  // namespace qf
