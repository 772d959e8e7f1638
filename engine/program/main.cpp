// SPDX-License-Identifier: Apache-2.0
#include <QCoreApplication>
#include <iostream>
#include <thread>

#include "engine/lists/CustomFilePath.h"
#include "engine/lists/CustomListsReader.h"
#include "engine/lists/ListData.h"
#include "engine/lists/QFCustomFile.h"
#include "engine/lists/QFListPublisher.h"
#include "engine/program/CleanerChain.h"
#include "engine/program/CleanerNames.h"
#include "engine/program/CommandLine.h"
#include "engine/program/EngineHost.h"
#include "engine/program/RunEngine.h"
#include "engine/program/Scripts.h"
#include "foundation/Log.h"
#include "hosts/linux/bus/EventHintsExchange.h"
#include "kit/QFAgent.h"

namespace {

using Mode = qf::CommandLine::Mode;

/// The built-in cleaners and the person's own.
qf::QFCleanerLibrary wholeLibrary(const qf::FileManager& fileManager, qf::CustomLists& lists) {
  qf::QFCleanerLibrary library;
  const qf::QFCustomFile file(qf::customFilePath(), fileManager);
  if (auto read = file.read(library.builtInCleaners())) {
    lists = *std::move(read);
  } else {
    qf::log(file.path().string() + ": " + read.error().localizedDescription);
  }
  library.setCustomCleaners(qf::makeCustomCleaners(lists, library.builtInCleaners()));
  return library;
}

qf::Dictionary wholeList(const qf::FileManager& fileManager, const qf::CustomLists& lists) {
  const qf::XdgBundle bundle;
  return qf::withCustomLists(qf::QFListPublisher::defaultListData(bundle, fileManager), lists);
}

int clean(const qf::CommandLine& commandLine) {
  const qf::XdgFileManager fileManager;
  qf::CustomLists lists;
  const qf::QFCleanerLibrary library = wholeLibrary(fileManager, lists);
  const qf::Dictionary listData = wholeList(fileManager, lists);
  const qf::CleanerNames names(listData, library);
  const auto tokens = names.leadingTokens(commandLine.words);
  if (tokens.empty()) {
    qf::log("there is no cleaner \"" + commandLine.words.front() + '"');
    return 1;
  }
  const qf::CleanerChain chain(library, tokens, [&listData](std::string_view token) {
    return qf::cleanerName(listData, token);
  });
  std::vector<std::string> files(
      commandLine.words.begin() + static_cast<std::ptrdiff_t>(tokens.size()),
      commandLine.words.end());
  files.insert(files.end(), commandLine.files.begin(), commandLine.files.end());
  if (files.empty()) return qf::cleanStream(chain, commandLine.encoding, std::cin, std::cout);
  if (!commandLine.inPlace) {
    return qf::cleanFilesTo(std::cout, chain, fileManager, commandLine.encoding, files);
  }
  const unsigned processors = std::thread::hardware_concurrency();
  return qf::cleanFilesInPlace(chain, fileManager, commandLine.encoding, files,
                               commandLine.jobs > 0 ? commandLine.jobs : processors);
}

/// Notes why the engine left the clipboard as it was.
class RefusalListener final : public qf::EventHintsExchange {
 public:
  void willSend() override {}
  std::optional<qf::EventHints> hintsOfEvent(const Receiver&, std::chrono::milliseconds) override {
    return qf::EventHints();
  }
  void answered(const qf::AnswerHints& hints) override { reason = hints.reason; }

  std::optional<std::string> reason;
};

/// Sends the engine the command, starting it where it does not run.
int cleanClipboard(int argc, char** argv, const std::string& name) {
  QCoreApplication application(argc, argv);
  qf::EngineHost host;
  qf::CustomLists lists;
  const qf::QFCleanerLibrary library = wholeLibrary(host.fileManager, lists);
  const auto token = qf::CleanerNames(wholeList(host.fileManager, lists), library).token(name);
  if (!token) {
    qf::log("there is no cleaner \"" + name + '"');
    return 1;
  }
  int exitCode = 0;
  const auto fail = [&exitCode](const std::string& reason) {
    qf::log(reason);
    exitCode = 1;
  };
  host.workspace.setLaunchFailureHandler(fail);
  host.appleEvents.setOutcomeHandler(
      [&fail](qf::AppleEventStatus status, const std::string& reason) {
        if (status != qf::AppleEventStatus::noError) fail(reason);
      });
  RefusalListener listener;
  host.appleEvents.setHintsExchange(&listener);
  qf::QFAgent agent(
      {host.appleEvents, host.bundle, host.notifications, host.fileManager, host.workspace});
  agent.setupConnection();
  agent.cleanClipboardWithCleaner(*token);
  if (listener.reason) fail(*listener.reason);
  host.appleEvents.setHintsExchange(nullptr);
  return exitCode;
}

int list(bool asJSON) {
  const qf::XdgFileManager fileManager;
  qf::CustomLists lists;
  wholeLibrary(fileManager, lists);
  const qf::Dictionary listData = wholeList(fileManager, lists);
  return asJSON ? qf::listCleanersAsJSON(listData, std::cout)
                : qf::listCleaners(listData, std::cout);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);  // or reading a large text takes longer than cleaning it
  const auto commandLine = qf::parseCommandLine({argv + 1, argv + argc});
  if (!commandLine) {
    std::cerr << "quenfold: " << commandLine.error().localizedDescription << '\n';
    return 2;
  }
  switch (commandLine->mode) {
    case Mode::help:
      std::cout << qf::commandLineHelp;
      return 0;
    case Mode::version:
      std::cout << "quenfold " QF_VERSION "\n";
      return 0;
    case Mode::list:
      return list(commandLine->asJSON);
    case Mode::clean:
      return clean(*commandLine);
    case Mode::cleanClipboard:
      return cleanClipboard(argc, argv, commandLine->words.front());
    case Mode::window:
      return qf::runEngine(argc, argv, qf::FirstShown::window);
    case Mode::agent:
      break;
  }
  return qf::runEngine(argc, argv, qf::FirstShown::nothing);
}
