// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/lists/QFCustomFile.h"
#include "engine/lists/QFListPublisher.h"
#include "engine/program/QFFileCleaner.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "kit/QFKAEConnector.h"
#include "kit/QFKAEConnectorDelegate.h"

namespace qf {

class AppleEvents;
class Bundle;
class DistributedNotificationCenter;
class EngineWindow;
class FileManager;
class Pasteboards;
class ServedEvent;
class Workspace;

/// What the engine needs of the host. All outlive it.
struct QFEngineHost {
  AppleEvents& appleEvents;
  const Bundle& bundle;
  DistributedNotificationCenter& distributedNotificationCenter;
  FileManager& fileManager;
  Pasteboards& pasteboards;
  Workspace& workspace;
  EngineWindow& window;
  /// The hints of the command that is carried out.
  ServedEvent& servedEvent;
  /// Tells the person why a text was left as it was.
  std::function<void(const std::string&)> tell;
  /// Where the person's own cleaners and groups are kept; empty for nowhere.
  std::filesystem::path customFile;
};

/// The engine as other programs see it: offers the lists and carries out commands. It never sends
/// any, so that it cannot wait for a program that waits for it. Main thread.
class QFEngine final : public QFKAEConnectorDelegate {
 public:
  /// `terminate` ends the program once the present command is answered.
  QFEngine(const QFEngineHost& host, std::function<void()> terminate);

  /// Loads and publishes the lists and takes commands from now on.
  void start();
  /// Loads everything anew from its files and publishes again. What cannot be used of the person's
  /// own is logged, with its place; while their file cannot be read at all, what it held last
  /// counts.
  void reload();

  /// What the window offers without a command: cleans the clipboard, and answers why it did not.
  [[nodiscard]] std::optional<Error> cleanClipboard(std::string_view token);

  /// Whether everyone can read the lists as they are now.
  const Availability& listAvailability() const { return _publisher.availability(); }

  std::string remoteAppBundleIdentifier() const override;
  bool remoteAppHasAgentMode() const override { return false; }
  bool receivesCommands() const override { return true; }
  std::optional<Value> processReceivedCommand(std::optional<std::string_view> command,
                                              std::optional<Value> param1,
                                              std::optional<Value> param2) override;

 private:
  void cleanPasteboard(const std::optional<Value>& name, const std::optional<Value>& cleaner);
  Cleaning clean(std::string_view pasteboardName, std::string_view token, const EventHints& hints);
  std::string nameOf(std::string_view token) const;
  void cleanFiles(const std::optional<Value>& files, std::string_view cleaner,
                  std::string_view encoding);
  void cleanFilesWithOptions(const std::optional<Value>& files,
                             const std::optional<Value>& options);
  Value menuSettings() const;
  std::optional<Value> textEncodingList() const;

  FileManager& _fileManager;
  EngineWindow& _window;
  ServedEvent& _servedEvent;
  std::function<void(const std::string&)> _tell;
  std::function<void()> _terminate;
  QFCleanerLibrary _library;
  QFCustomFile _customFile;
  CustomLists _customLists;
  QFListPublisher _publisher;
  QFPasteboardCleaner _pasteboardCleaner;
  QFFileCleaner _fileCleaner;
  QFKAEConnector _connector;
};

}  // namespace qf
