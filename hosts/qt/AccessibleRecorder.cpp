// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/AccessibleRecorder.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "hosts/qt/KeyEquivalent.h"
#include "hosts/qt/QtRecorderView.h"

namespace qf {
namespace {

class AccessibleRecorder final : public QAccessibleWidget {
 public:
  explicit AccessibleRecorder(QtRecorderView* view)
      : QAccessibleWidget(view, QAccessible::Button), _view(view) {}

  QString text(QAccessible::Text kind) const override {
    const RecorderAccessibility* recorder = _view->accessibility();
    if (!recorder) return {};
    // The bridge of Linux passes descriptions on, but no help.
    const bool isHelp = kind == QAccessible::Help || kind == QAccessible::Description;
    if (isHelp) return QString::fromStdString(recorder->accessibilityHelp());
    if (kind == QAccessible::Name) {
      return withKeysAsWritten(QString::fromStdString(recorder->accessibilityLabel()));
    }
    return {};
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = _view->accessibility() && _view->accessibility()->isRecording();
    return state;
  }

  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action != pressAction()) {
      QAccessibleWidget::doAction(action);
      return;
    }
    // Later, from the run loop: who asks waits for an answer.
    const auto press = [view = _view] {
      if (view->accessibility()) view->accessibility()->accessibilityPerformPress();
    };
    QMetaObject::invokeMethod(_view, press, Qt::QueuedConnection);
  }

 private:
  QtRecorderView* _view;
};

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
  auto* view = qobject_cast<QtRecorderView*>(object);
  return view ? new AccessibleRecorder(view) : nullptr;
}

}  // namespace

void showRecordersToAccessibility() { QAccessible::installFactory(make); }

}  // namespace qf
