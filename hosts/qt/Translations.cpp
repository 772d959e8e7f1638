// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace qf {

void installTranslations(const std::filesystem::path& folder) {
  const QLocale locale = QLocale::system();
  auto* own = new QTranslator(qApp);
  if (!own->load(locale, "quenfold", "_", QString::fromStdString(folder.string()))) return;
  QCoreApplication::installTranslator(own);
  auto* toolkit = new QTranslator(qApp);
  const QString toolkitFolder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (toolkit->load(locale, "qtbase", "_", toolkitFolder)) {
    QCoreApplication::installTranslator(toolkit);
  }
  QGuiApplication::setLayoutDirection(QLocale(own->language()).textDirection());
}

}  // namespace qf
