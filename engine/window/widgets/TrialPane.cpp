// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/TrialPane.h"

#include <QGridLayout>
#include <QTextBlock>
#include <utility>

#include "engine/window/models/TextChanges.h"
#include "hosts/qt/Reasons.h"

namespace qf {

TrialPane::TrialPane(QWidget* parent) : QWidget(parent) {
  setSample({});
  layOut();
  connect(_sample, &QPlainTextEdit::textChanged, this, &TrialPane::run);
  connect(&_trial, &CleanerTrial::finished, this, [this](const auto& result, const auto& problem) {
    if (!_clean) return;  // what was tried is shown no more
    show(result, problem.isEmpty() ? problem : tr("Left as it is: %1").arg(reasonText(problem)));
  });
}

void TrialPane::layOut() {
  _sample->setAccessibleName(tr("Sample"));
  _result->setAccessibleName(tr("Result"));
  _result->setReadOnly(true);
  _result->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  for (TextBox* field : {_sample, _result}) {
    field->setTabChangesFocus(true);
    constexpr int smallestLines = 3;
    field->setMinimumHeight(smallestLines * field->fontMetrics().lineSpacing());
  }
  _problem->setWordWrap(true);
  _problem->setTextFormat(Qt::PlainText);
  _problem->setVisible(false);
  auto* sampleLabel = new QLabel(tr("&Try it here"));
  sampleLabel->setBuddy(_sample);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins({});
  grid->addWidget(sampleLabel, 0, 0);
  grid->addWidget(new QLabel(tr("Result")), 0, 1);
  grid->addWidget(_sample, 1, 0);
  grid->addWidget(_result, 1, 1);
  grid->addWidget(_problem, 2, 0, 1, 2);
}

void TrialPane::setCleaner(CleanerFunction clean, const QString& reason) {
  _clean = std::move(clean);
  _reason = reason;
  run();
}

void TrialPane::setSample(std::string sample) {
  if (sample.empty()) {
    sample = tr("  Some   text to try,\nwith “quotes” — and\tmore.  ").toStdString();
  }
  if (_sample->text() != _given) return;
  _given = std::move(sample);
  _sample->setText(_given);
}

void TrialPane::run() {
  if (!_clean) return show({}, _reason);
  _trial.run(_clean, _sample->text());
}

void TrialPane::show(const QString& result, const QString& problem) {
  _result->setText(result.toStdString());
  markChanges();
  _problem->setText(problem);
  _problem->setVisible(!problem.isEmpty());
}

void TrialPane::markChanges() {
  QList<QTextEdit::ExtraSelection> marks;
  const QString before = _sample->document()->toRawText(), after = _result->document()->toRawText();
  QColor color = palette().color(QPalette::Highlight);
  color.setAlphaF(0.3F);
  for (const ChangedPart& part : changedParts(before, after)) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(_result->document());
    mark.cursor.setPosition(part.start);
    mark.cursor.setPosition(part.start + part.length, QTextCursor::KeepAnchor);
    mark.format.setBackground(color);
    marks.append(mark);
  }
  _result->setExtraSelections(marks);
}

}  // namespace qf
