// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>

#include "tests/desktop/Accessible.h"

namespace qf::desktop {

using namespace std::chrono_literals;

/// Asks again and again until the condition holds; false when the time is up first.
bool until(const std::function<bool()>& condition, std::chrono::milliseconds limit = 10s);

/// Runs a short command to its end and answers what it printed.
QString output(const QString& program, const QStringList& arguments, const QByteArray& input = {});

/// A program of the test's own: ended when this goes.
class Program {
 public:
  Program(const QString& path, const QStringList& arguments,
          const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
  ~Program();

  qint64 processIdentifier() const { return _process.processId(); }
  bool isRunning() const { return _process.state() == QProcess::Running; }
  int exitCode() const { return _process.exitCode(); }
  void signal(int number) const;
  /// What it has printed so far, both channels.
  QString printed();

 private:
  QProcess _process;
  QString _printed;
};

/// An X server with nothing on it.
class XServer : public Program {
 public:
  XServer();
  std::string display;
};

/// An editor with a window, found through the accessibility bus.
class Editor {
 public:
  /// Opens the program with the text, in the place of "%text" in the command or else in a file,
  /// whose path goes to "%file" or to the end, or to "%page" as that of a web page, "%profile"
  /// being a folder for the browser; throws std::runtime_error when no window with it comes up.
  Editor(const QString& command, const QString& text);

  Program& program() { return _program; }
  QString text() const;
  /// Gives the window the input, puts the text there and selects all of it, or none.
  void reset(const QString& text, bool selected = true);
  void focus() const;
  /// False while another tab hides it.
  bool isShowing() const { return _textArea->isShowing(); }
  /// Selects all of its text by the accessibility bus; whether something is selected now.
  bool selectAll() const;

 private:
  Editor(const QStringList& words, const QString& text);

  Program _program;
  std::optional<Accessible> _textArea;
};

namespace keyboard {
void press(const QString& keys);
void hold(const QString& key);
void release(const QString& key);
}  // namespace keyboard

namespace mouse {
void click(QPoint place, int button = 1);
}

namespace clipboard {
QString text();
/// Another application's copy: the text stays there until somebody else copies.
void setText(const QString& text);
}  // namespace clipboard

/// The visible window of our own that the process has, its palette or the engine's; empty for none.
QString windowOf(qint64 processIdentifier);

void screenshot(const QString& file);

}  // namespace qf::desktop
