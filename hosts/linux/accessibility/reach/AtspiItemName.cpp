// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiItemName.h"

#include <libintl.h>

#include <QCoreApplication>
#include <QSet>
#include <QStringList>
#include <initializer_list>

#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {
namespace {

/// Without mnemonics and what stands behind a name in some menus.
QString plainName(QString name) {
  name.remove(u'_').remove(u'&').remove(u'…');
  return name.simplified().toCaseFolded();
}

/// The English names with their mnemonics, by which each toolkit's translations know them.
QSet<QString> translations(std::initializer_list<const char*> names) {
  QSet<QString> found;
  for (const char* name : names) {
    found.insert(plainName(QString::fromUtf8(name)));
    for (const char* domain : {"gtk30", "gtk40", "kconfigwidgets5", "kconfigwidgets6"}) {
      found.insert(plainName(QString::fromUtf8(dgettext(domain, name))));
      const QByteArray stock = QByteArray("Stock label\004") + name;
      const QByteArray text = dgettext(domain, stock.constData());
      if (text != stock) found.insert(plainName(QString::fromUtf8(text)));
    }
    for (const char* context : {"QLineEdit", "QWidgetTextControl", "QWebPage"})
      found.insert(plainName(QCoreApplication::translate(context, name)));
  }
  return found;
}

const QSet<QString>& namesOfCopy() {
  static const QSet<QString> names = translations({"_Copy", "&Copy", "Copy"});
  return names;
}

}  // namespace

std::optional<AtspiKeyBinding> keyOfItemNamed(const QString& name) {
  static const QSet<QString> paste = translations({"_Paste", "&Paste", "Paste"});
  static const QSet<QString> selectAll =
      translations({"Select _All", "Select &All", "Select All", "Select all"});
  const QString plain = plainName(name);
  if (namesOfCopy().contains(plain)) return copyKey;
  if (paste.contains(plain)) return pasteKey;
  if (selectAll.contains(plain)) return selectAllKey;
  return std::nullopt;
}

bool namesWhatItCopies(const QString& name) {
  const QString plain = plainName(name);
  if (namesOfCopy().contains(plain)) return false;
  for (const QString& word : plain.split(u' '))
    if (namesOfCopy().contains(word)) return true;
  return false;
}

}  // namespace qf
