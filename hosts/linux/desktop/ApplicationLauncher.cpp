// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/ApplicationLauncher.h"

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <algorithm>
#include <system_error>
#include <utility>

namespace qf {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds lookInterval{20};

Error cannotStart(const DesktopEntry& entry, const std::string& reason) {
  return {entry.name + " cannot be started: " + reason};
}

/// A process that need not be our child, watched for its end.
class WatchedProcess {
 public:
  explicit WatchedProcess(qint64 processIdentifier)
      : _descriptor(
            static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(processIdentifier), 0))) {}
  ~WatchedProcess() {
    if (_descriptor >= 0) close(_descriptor);
  }
  WatchedProcess(const WatchedProcess&) = delete;
  WatchedProcess& operator=(const WatchedProcess&) = delete;

  bool endsWithin(milliseconds time) const {
    if (_descriptor < 0) return true;
    pollfd watched{_descriptor, POLLIN, 0};
    return poll(&watched, 1, static_cast<int>(time.count())) > 0;
  }

 private:
  int _descriptor;
};

std::optional<Error> waitUntilAppeared(const DesktopEntry& entry, qint64 processIdentifier,
                                       const std::function<bool()>& hasAppeared,
                                       milliseconds limit) {
  const WatchedProcess process(processIdentifier);
  const Clock::time_point deadline = Clock::now() + limit;
  for (;;) {
    const bool hasEnded = process.endsWithin(lookInterval);
    if (hasAppeared()) return std::nullopt;
    if (hasEnded) return cannotStart(entry, "it ended before it appeared on the bus");
    if (Clock::now() >= deadline) {
      const auto seconds = QString::number(static_cast<double>(limit.count()) / 1000, 'g', 3);
      return Error{entry.name + " did not appear on the bus within " + seconds.toStdString() +
                   " s"};
    }
  }
}

}  // namespace

ApplicationLauncher::ApplicationLauncher(fs::path programFolder)
    : _programFolder(std::move(programFolder)) {}

std::string ApplicationLauncher::findProgram(const DesktopEntry& entry,
                                             const std::string& name) const {
  const fs::path ownEntries = (_programFolder / "../share/applications").lexically_normal();
  if (entry.path.parent_path().lexically_normal() == ownEntries) {
    // Whatever folder the entry names: an installed tree may have been moved.
    const QString own =
        QStandardPaths::findExecutable(fs::path(name).filename().c_str(), {_programFolder.c_str()});
    if (!own.isEmpty()) return own.toStdString();
  }
  return QStandardPaths::findExecutable(name.c_str()).toStdString();
}

std::optional<Error> ApplicationLauncher::launch(const DesktopEntry& entry,
                                                 const std::vector<std::string>& arguments,
                                                 const std::function<bool()>& hasAppeared,
                                                 milliseconds limit) const {
  std::vector<std::string> line = entry.commandLine();
  if (line.empty()) return cannotStart(entry, entry.path.string() + " has no valid Exec line");
  if (!entry.tryExec.empty() && findProgram(entry, entry.tryExec).empty())
    return cannotStart(entry, entry.tryExec + " is not installed");
  const std::string program = findProgram(entry, line.front());
  if (program.empty()) return cannotStart(entry, line.front() + " is not installed");
  line.insert(line.end(), arguments.begin(), arguments.end());

  QStringList rest;
  for (auto argument = line.begin() + 1; argument != line.end(); ++argument)
    rest << QString::fromStdString(*argument);
  QProcess process;  // forks twice when it starts detached, so the program is never our child
  process.setProgram(QString::fromStdString(program));
  process.setArguments(rest);
  process.setStandardInputFile(QProcess::nullDevice());
  if (!entry.workingFolder.empty())
    process.setWorkingDirectory(QString::fromStdString(entry.workingFolder));
  qint64 processIdentifier = 0;
  if (!process.startDetached(&processIdentifier))
    return cannotStart(entry, process.errorString().toStdString());
  if (!hasAppeared) return std::nullopt;
  return waitUntilAppeared(entry, processIdentifier, hasAppeared, limit);
}

}  // namespace qf
