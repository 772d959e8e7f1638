// SPDX-License-Identifier: Apache-2.0
// Shows the three roads of a cleaning request in a real editor, as a person would walk them, and
// checks where each one ended.
//
//   road_demo PICTURE_FOLDER [AGENT]
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>
#include <exception>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace {

using namespace qf::desktop;

struct Road {
  QString name;
  QString heldKey;
  QString cleaner;
  QString textBefore;
  QString clipboardBefore;
  QString textAfter;
  QString clipboardAfter;
};

const QString sample = "This  text   came\nout of an e-mail ,  with   “odd” spacing .\n";

std::vector<Road> roads() {
  const QString upper = sample.toUpper();
  return {
      {"Clean the selection and paste it back", "", "Upper Case", sample, "old", upper, upper},
      {"Clean the selection, leave the result on the clipboard (Shift)", "shift", "Upper Case",
       sample, "old", sample, upper},
      {"Clean what is on the clipboard (Option)", "alt", "Upper Case", sample,
       "copied somewhere else", sample, "COPIED SOMEWHERE ELSE"},
  };
}

QString quoted(QString text) { return '"' + text.replace('\n', "\\n") + '"'; }

bool walk(const Road& road, Agent& agent, Editor& editor, const QString& picture) {
  QTextStream out(stdout);
  editor.reset(road.textBefore);
  clipboard::setText(road.clipboardBefore);
  out << road.name << "\n  before: editor " << quoted(editor.text()) << ", clipboard "
      << quoted(clipboard::text()) << Qt::endl;
  screenshot(picture + "-1-before.png");
  agent.pick(road.cleaner, road.heldKey, picture + "-2-menu.png");
  const bool isRight = until(
      [&] { return editor.text() == road.textAfter && clipboard::text() == road.clipboardAfter; },
      6s);
  screenshot(picture + "-3-after.png");
  out << "  after:  editor " << quoted(editor.text()) << ", clipboard " << quoted(clipboard::text())
      << "\n  " << (isRight ? "right" : "WRONG") << Qt::endl;
  return isRight;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const QString pictures = arguments.value(1, ".");
  const QString agentProgram = arguments.value(2, Agent::builtProgram("quenfold-menu"));
  QDir().mkpath(pictures);
  try {
    Agent agent(agentProgram);
    Editor editor("mousepad", sample);
    int right = 0, number = 0;
    for (const Road& road : roads()) {
      right += walk(road, agent, editor, QString("%1/road%2").arg(pictures).arg(++number));
    }
    QTextStream(stdout) << right << " of " << number << " roads came out right; pictures in "
                        << pictures << Qt::endl;
    return right == number ? 0 : 1;
  } catch (const std::exception& fault) {
    screenshot(pictures + "/fault.png");
    QTextStream(stderr) << fault.what() << Qt::endl;
    return 1;
  }
}
