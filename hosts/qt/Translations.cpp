// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/Translations.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace qf {
namespace {

bool install(const QString& table, const QString& folder) {
  auto* translator = new QTranslator(qApp);
  return translator->load(table, folder) && QCoreApplication::installTranslator(translator);
}

}  // namespace

void installTranslations(const std::filesystem::path& folder,
                         const std::vector<std::string>& languages) {
  for (const std::string& language : languages) {
    const QString name = QString::fromStdString(language);
    if (!install("quenfold_" + name, QString::fromStdString(folder.string()))) continue;
    install("qtbase_" + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    QGuiApplication::setLayoutDirection(QLocale(name).textDirection());
    return;
  }
}

}  // namespace qf
