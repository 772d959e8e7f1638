// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <functional>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/lists/QFCustomFile.h"
#include "engine/program/FileWatch.h"
#include "engine/window/WindowHost.h"
#include "foundation/Value.h"

namespace qf {

/// The person's own cleaners and groups as the window shows and changes them, and what the built-in
/// ones are called. Each change is made to what the file holds at that moment. Main thread.
class PersonalLists final : public QObject {
  Q_OBJECT

 public:
  explicit PersonalLists(const WindowHost& host);

  /// As last read; while the file cannot be read at all, as it was before.
  const CustomLists& lists() const { return _lists; }
  /// Why the file cannot be read, and its entries that cannot be used; empty where all is well.
  QString faults() const;
  const std::filesystem::path& path() const { return _file.path(); }
  const QFCleanerLibrary& builtIn() const { return _builtIn; }

  const CustomCleaner* cleaner(std::string_view token) const;
  const CustomGroup* group(std::string_view name) const;
  /// Every token that a group may hold and "Custom" does not: the built-in cleaners', sorted by
  /// name.
  std::vector<std::string> builtInTokens() const;
  QString nameOf(std::string_view token) const;
  QString descriptionOf(std::string_view token) const;
  /// A text that shows what a built-in cleaner does; empty where there is none.
  std::string sampleOf(std::string_view token) const;

  // Each reads the file, changes it and reads it again; the answer says why it stayed as it was.
  // Reading replaces what `lists` and the like refer to, and `changed` may reach the caller.
  Result<std::string> addCleaner(CustomCleaner cleaner);
  [[nodiscard]] std::optional<Error> changeCleaner(
      const std::string& token, const std::function<void(CustomCleaner&)>& change);
  [[nodiscard]] std::optional<Error> removeCleaner(const std::string& token);
  Result<std::string> addGroup(const QString& name);
  [[nodiscard]] std::optional<Error> renameGroup(const std::string& name,
                                                 const std::string& newName);
  /// Refused when the group holds something else than `shown` by now.
  [[nodiscard]] std::optional<Error> changeEntries(const std::string& name,
                                                   const std::vector<CustomGroup::Entry>& shown,
                                                   const std::vector<CustomGroup::Entry>& wanted);
  [[nodiscard]] std::optional<Error> removeGroup(const std::string& name);
  [[nodiscard]] std::optional<Error> moveGroup(const std::string& name, const std::string& before);

 public slots:
  void read();

 signals:
  /// By the window or by anyone else; also told when an edit was refused.
  void changed();

 private:
  Error refused(Error error);
  [[nodiscard]] std::optional<Error> stored(const std::optional<Error>& failure);
  [[nodiscard]] std::optional<Error> nameFault(const std::string& name) const;
  std::optional<std::string_view> infoText(std::string_view token, std::string_view key) const;

  QFCleanerLibrary _builtIn;
  Dictionary _defaults;
  QFCustomFile _file;
  CustomLists _lists;
  QString _fault;
  FileWatch _watch;
};

}  // namespace qf
