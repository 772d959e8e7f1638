// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QThread>
#include <csignal>
#include <stdexcept>

namespace qf::desktop {
namespace {

/// A file of the session's home, gone with the session.
QString fileHolding(const QString& text, const QString& suffix = ".txt") {
  static int count = 0;
  const QString path = qEnvironmentVariable("HOME") + QString("/sample-%1").arg(++count) + suffix;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no home to write to");
  file.write(text.toUtf8());
  return path;
}

constexpr int editable = 7, focused = 12, multiLine = 17;

bool isTextArea(const Accessible& node) {
  if (node.role() == "terminal") return true;
  return node.role() == "text" && node.isShowing() && node.hasState(multiLine);
}

/// GTK 4 and Chromium call it by other names, and GTK 4 never says that it shows.
bool isFocusedText(const Accessible& node) {
  const QString role = node.role();
  return (role.startsWith("text") || role == "entry") && node.hasState(editable) &&
         node.hasState(focused);
}

/// A folder of Firefox's that welcomes nobody.
QString profileOfBrowser() {
  const QString folder = qEnvironmentVariable("HOME") + "/profile";
  QDir().mkpath(folder);
  QFile preferences(folder + "/user.js");
  if (!preferences.open(QIODevice::WriteOnly)) throw std::runtime_error("no home to write to");
  for (const char* name : {"browser.aboutwelcome.enabled", "browser.shell.checkDefaultBrowser",
                           "datareporting.policy.dataSubmissionEnabled"})
    preferences.write("user_pref(\"" + QByteArray(name) + "\", false);\n");
  return folder;
}

QStringList commandLine(const QString& command, const QString& text) {
  QStringList words = command.split(' ');
  const QString built = QCoreApplication::applicationDirPath() + '/' + words.first();
  if (QFileInfo::exists(built)) words.first() = built;
  if (command.contains("%profile")) words.replaceInStrings("%profile", profileOfBrowser());
  if (command.contains("%page"))
    return words.replaceInStrings("%page",
                                  fileHolding("<textarea autofocus rows=9>" + text, ".html"));
  if (command.contains("%file")) return words.replaceInStrings("%file", fileHolding(text));
  if (command.contains("%text")) return words.replaceInStrings("%text", text);
  return words << fileHolding(text);
}

}  // namespace

bool until(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    QCoreApplication::processEvents();
    QThread::msleep(10);
  }
  return true;
}

QString output(const QString& program, const QStringList& arguments, const QByteArray& input) {
  QProcess process;
  process.start(program, arguments);
  process.write(input);
  process.closeWriteChannel();
  process.waitForFinished(15000);
  return QString::fromUtf8(process.readAllStandardOutput());
}

Program::Program(const QString& path, const QStringList& arguments,
                 const QProcessEnvironment& environment) {
  _process.setProcessChannelMode(QProcess::MergedChannels);
  _process.setProcessEnvironment(environment);
  _process.start(path, arguments);
  if (!_process.waitForStarted()) throw std::runtime_error("cannot start " + path.toStdString());
}

Program::~Program() {
  if (!isRunning()) return;
  signal(SIGCONT);
  _process.terminate();
  if (!_process.waitForFinished(3000)) _process.kill();
  _process.waitForFinished(3000);
}

void Program::signal(int number) const { ::kill(static_cast<pid_t>(processIdentifier()), number); }

QString Program::printed() {
  _process.waitForReadyRead(1);
  return _printed += QString::fromUtf8(_process.readAll());
}

// Servers that look for a free display at once can take each other's socket away.
XServer::XServer()
    : Program("flock", {"--no-fork", QDir::tempPath() + "/quenfold-desktop.lock", "Xvfb",
                        "-displayfd", "1", "-noreset", "-nolisten", "tcp"}) {
  static const QRegularExpression number("^(\\d+)\n", QRegularExpression::MultilineOption);
  until([this] { return number.match(printed()).hasMatch(); }, 20s);
  display = ':' + number.match(printed()).captured(1).toStdString();
}

Editor::Editor(const QString& command, const QString& text)
    : Editor(commandLine(command, text), text) {}

Editor::Editor(const QStringList& words, const QString& text)
    : _program(words.first(), words.mid(1)) {
  const bool isThere = until(
      [&] {
        const auto application = Accessible::application(_program.processIdentifier());
        if (application) _textArea = application->find(isTextArea);
        const auto hasText = [&] {
          return _textArea && _textArea->text().startsWith(text.left(20));
        };
        if (application && !hasText()) _textArea = application->find(isFocusedText);
        return hasText();
      },
      20s);
  if (!isThere) throw std::runtime_error("no text area in " + words.first().toStdString());
}

/// Firefox puts a mark after characters outside the Basic Multilingual Plane.
QString Editor::text() const { return _textArea->text().remove(QChar::ByteOrderMark); }

void Editor::focus() const {
  if (_textArea->hasState(focused)) return;
  const QString pid = QString::number(_program.processIdentifier());
  output("xdotool", {"search", "--sync", "--onlyvisible", "--pid", pid, "windowactivate"});
  mouse::click(_textArea->screenExtents().center());
}

bool Editor::selectAll() const {
  _textArea->select(0, static_cast<int>(text().trimmed().size()));
  return _textArea->selectionCount() > 0;
}

void Editor::reset(const QString& text, bool selected) {
  focus();
  const auto isThere = [&] { return this->text() == text; };
  if (!_textArea->setText(text) || !until(isThere, 3s)) {
    clipboard::setText(text);
    keyboard::press("ctrl+a");
    keyboard::press("ctrl+v");
  }
  until(isThere);
  keyboard::press(selected ? "ctrl+a" : "Home");
  until([&] { return (_textArea->selectionCount() > 0) == selected; }, 2s);
}

void keyboard::press(const QString& keys) { output("xdotool", {"key", "--clearmodifiers", keys}); }
void keyboard::hold(const QString& key) { output("xdotool", {"keydown", key}); }
void keyboard::release(const QString& key) { output("xdotool", {"keyup", key}); }

void mouse::click(QPoint place, int button) {
  output("xdotool", {"mousemove", QString::number(place.x()), QString::number(place.y()), "click",
                     QString::number(button)});
}

QString clipboard::text() {
  return output("xclip", {"-o", "-selection", "clipboard", "-target", "UTF8_STRING"});
}

void clipboard::setText(const QString& text) {
  // It forks to serve, holding its outputs open: they must not be ours.
  output("sh", {"-c", "exec xclip -i -selection clipboard >/dev/null 2>&1"}, text.toUtf8());
  until([&] { return clipboard::text() == text; }, 3s);
}

QString windowOf(qint64 processIdentifier) {
  return output("xdotool", {"search", "--all", "--onlyvisible", "--pid",
                            QString::number(processIdentifier), "--name", "^Quenfold$"})
      .trimmed();
}

void screenshot(const QString& file) { output("import", {"-window", "root", file}); }

}  // namespace qf::desktop
