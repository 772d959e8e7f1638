// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/StepListModel.h"

#include <QApplication>
#include <QStyle>

#include "engine/window/models/PersonalLists.h"
#include "engine/window/models/StepFault.h"
#include "hosts/qt/QtText.h"

namespace qf {

namespace {

/// So that data keep their own direction within a text that runs from right to left.
QString isolated(const std::string& data) {
  const QString text = toQString(data).simplified();
  const bool isNeeded = QGuiApplication::layoutDirection() == Qt::RightToLeft;
  return isNeeded ? QChar(0x2068) + text + QChar(0x2069) : text;
}

}  // namespace

StepListModel::StepListModel(const PersonalLists& lists, QObject* parent)
    : RowListModel(parent), _lists(lists) {}

QString StepListModel::textOf(const CustomStep& step) const {
  if (const auto* token = std::get_if<std::string>(&step)) return _lists.nameOf(*token);
  const auto& replacement = std::get<FindReplace>(step);
  const QString find = isolated(replacement.find), replace = isolated(replacement.replace);
  if (replacement.find.empty()) return tr("Find and replace");
  if (replacement.replace.empty()) return tr("Remove “%1”").arg(find);
  return tr("Replace “%1” by “%2”").arg(find, replace);
}

QVariant StepListModel::data(const QModelIndex& index, int role) const {
  const CustomStep* step = row(index.row());
  if (!step) return {};
  const QString fault = stepFault(*step);
  switch (role) {
    case Qt::DisplayRole:
      return textOf(*step);
    case Qt::AccessibleTextRole:
      return fault.isEmpty() ? textOf(*step) : QString("%1. %2").arg(textOf(*step), fault);
    case Qt::ToolTipRole:
      return fault;
    case Qt::DecorationRole:
      if (fault.isEmpty()) return {};
      return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    default:
      return {};
  }
}

QString StepListModel::fault() const {
  if (rows().empty()) return tr("A cleaner needs at least one step.");
  for (std::size_t i = 0; i < rows().size(); ++i) {
    const QString fault = stepFault(rows()[i]);
    if (!fault.isEmpty()) return tr("Step %1: %2").arg(i + 1).arg(fault);
  }
  return {};
}

}  // namespace qf
