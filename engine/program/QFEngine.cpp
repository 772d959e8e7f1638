// SPDX-License-Identifier: Apache-2.0
#include "engine/program/QFEngine.h"

#include "engine/lists/CustomListsReader.h"
#include "engine/lists/ListData.h"
#include "engine/program/EngineWindow.h"
#include "foundation/Log.h"
#include "hosts/linux/bus/ServedEvent.h"
#include "kit/DictionaryFile.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKListFormat.h"
#include "kit/QFKSharedContainerURL.h"

namespace qf {
namespace {

void logIgnored(std::string_view command, std::string_view reason) {
  log("Command " + std::string(command) + " ignored: " + std::string(reason));
}

std::optional<std::string_view> stringIn(const std::optional<Value>& value) {
  return value ? value->string() : std::nullopt;
}

}  // namespace

QFEngine::QFEngine(const QFEngineHost& host, std::function<void()> terminate)
    : _fileManager(host.fileManager),
      _window(host.window),
      _servedEvent(host.servedEvent),
      _tell(host.tell),
      _terminate(std::move(terminate)),
      _customFile(host.customFile, host.fileManager),
      _publisher(host.bundle, host.fileManager, host.distributedNotificationCenter),
      _pasteboardCleaner(host.pasteboards, _library),
      _fileCleaner(host.fileManager, _library),
      _connector(host.appleEvents, host.workspace, host.distributedNotificationCenter) {
  _connector.setDelegate(this);
}

void QFEngine::start() {
  reload();
  _connector.setupIncomingCommandsReceiver();
}

void QFEngine::reload() {
  const std::string file = _customFile.path().string() + ": ";
  if (Result<CustomLists> lists = _customFile.read(_library.builtInCleaners())) {
    _customLists = *std::move(lists);
    for (const std::string& fault : _customLists.faults) log(file + fault);
  } else {
    log(file + lists.error().localizedDescription);
  }
  _library.setCustomCleaners(makeCustomCleaners(_customLists, _library.builtInCleaners()),
                             customFormattingRemovers(_customLists, _library));
  _publisher.reload(_customLists);
  _publisher.publish();
}

std::string QFEngine::remoteAppBundleIdentifier() const {
  return std::string(agentBundleIdentifier);
}

std::optional<Value> QFEngine::processReceivedCommand(std::optional<std::string_view> command,
                                                      std::optional<Value> param1,
                                                      std::optional<Value> param2) {
  const std::string_view name = command.value_or("");
  if (name == "listData") return Value(_publisher.listData());
  if (name == "menuSettings") return menuSettings();
  if (name == "textEncodingList") return textEncodingList();
  if (name == "quitEngine") {
    _terminate();
  } else if (name == "resetEngine") {
    reload();
  } else if (name == "launchQuenfoldApp") {
    _window.show();
  } else if (name == "showQuenfoldPreferences") {
    _window.showPreferences();
  } else if (name == "cleanPasteboard:cleaner:") {
    cleanPasteboard(param1, param2);
  } else if (name == "cleanFiles:cleaner:") {
    const auto cleaner = stringIn(param2);
    cleanFiles(param1, cleaner ? *cleaner : "", "");
  } else if (name == "cleanFiles:options:") {
    cleanFilesWithOptions(param1, param2);
  } else {
    log("command:<<" + std::string(name) + ">> is not implemented");
  }
  return std::nullopt;
}

void QFEngine::cleanPasteboard(const std::optional<Value>& name,
                               const std::optional<Value>& cleaner) {
  const auto pasteboardName = stringIn(name);
  const auto token = stringIn(cleaner);
  if (!pasteboardName || !token) {
    return logIgnored("cleanPasteboard:cleaner:", "it needs a pasteboard's name and a cleaner");
  }
  const Cleaning cleaning = clean(*pasteboardName, *token, _servedEvent.hints());
  AnswerHints answer{.outcome = cleaning.outcome, .clipboard = cleaning.contents};
  if (!cleaning.reason.empty()) {
    const std::string told = refusalText(nameOf(*token), cleaning.reason);
    answer.reason = told;
    if (cleaning.outcome == Cleaning::Outcome::refused) _tell(told);
  }
  _servedEvent.setAnswerHints(std::move(answer));
}

std::optional<Error> QFEngine::cleanClipboard(std::string_view token) {
  const Cleaning cleaning = clean(NSGeneralPboard, token, {});
  if (cleaning.reason.empty()) return std::nullopt;
  return Error{refusalText(nameOf(token), cleaning.reason)};
}

Cleaning QFEngine::clean(std::string_view pasteboardName, std::string_view token,
                         const EventHints& hints) {
  Cleaning cleaning = _pasteboardCleaner.clean(pasteboardName, token, hints);
  if (!cleaning.reason.empty()) {
    log("Pasteboard " + std::string(pasteboardName) + " left as it is: " + cleaning.reason);
  }
  return cleaning;
}

std::string QFEngine::nameOf(std::string_view token) const {
  return cleanerName(_publisher.listData(), token);
}

void QFEngine::cleanFilesWithOptions(const std::optional<Value>& files,
                                     const std::optional<Value>& options) {
  const Dictionary* entries = options ? options->dictionary() : nullptr;
  const auto cleaner = entries ? entries->string("cleanerName") : std::nullopt;
  const auto encoding = entries ? entries->string("encodingName") : std::nullopt;
  cleanFiles(files, cleaner.value_or(""), encoding.value_or(""));
}

void QFEngine::cleanFiles(const std::optional<Value>& files, std::string_view cleaner,
                          std::string_view encoding) {
  const Array* paths = files ? files->array() : nullptr;
  if (!paths || cleaner.empty()) {
    return logIgnored("cleanFiles", "it needs a list of paths and a cleaner");
  }
  for (const Value& value : *paths) {
    const std::filesystem::path path = value.string().value_or("");
    if (!path.is_absolute()) {
      logIgnored("cleanFiles", value.description() + " is no absolute path");
    } else if (const auto error = _fileCleaner.clean(path, cleaner, encoding)) {
      log("File " + path.string() + " left as it is: " + error->localizedDescription);
    }
  }
}

Value QFEngine::menuSettings() const {
  const auto stored = dictionaryWithContentsOfURL(
      _fileManager, QFKSharedContainerURL::QFKMenuSettingsURL(_fileManager));
  return stored ? *stored : Dictionary{{"menuIconID", 0}, {"menuStyle", 0}};
}

std::optional<Value> QFEngine::textEncodingList() const {
  const Value* list = _publisher.listData().find(listKey::textEncoding);
  return list ? std::optional(*list) : std::nullopt;
}

}  // namespace qf
