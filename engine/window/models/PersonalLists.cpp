// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/PersonalLists.h"

#include <algorithm>

#include "engine/lists/CustomListsReader.h"
#include "engine/lists/ListData.h"
#include "engine/lists/QFListPublisher.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "hosts/qt/QtText.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

template <class List, class Get>
auto* findIn(List& list, Get&& get, std::string_view id) {
  const auto found =
      std::find_if(list.begin(), list.end(), [&](const auto& entry) { return get(entry) == id; });
  return found == list.end() ? nullptr : &*found;
}

/// The name, or the first of "name 2", "name 3" and so on that is free.
template <class IsTaken>
std::string freeName(const std::string& name, IsTaken&& isTaken) {
  std::string candidate = name;
  for (int number = 2; isTaken(candidate); ++number)
    candidate = name + ' ' + std::to_string(number);
  return candidate;
}

Error changedElsewhere() {
  return {PersonalLists::tr("That was changed by another program at the same moment. What you see "
                            "now is how it stands; please try again.")
              .toStdString()};
}

}  // namespace

PersonalLists::PersonalLists(const WindowHost& host)
    : _defaults(QFListPublisher::defaultListData(host.bundle, host.fileManager)),
      _file(host.customFile, host.fileManager),
      _watch(host.customFile, [this] { read(); }) {
  read();
}

void PersonalLists::read() {
  const auto before = std::make_pair(_lists, _fault);
  Result<CustomLists> lists = _file.read(_builtIn.builtInCleaners());
  _fault = lists ? QString() : toQString(lists.error().localizedDescription);
  if (lists) _lists = *std::move(lists);
  if (before != std::make_pair(_lists, _fault)) emit changed();
}

QString PersonalLists::faults() const {
  const QString path = toQString(_file.path().string());
  if (!_fault.isEmpty()) {
    return tr("%1 cannot be read, so nothing can be changed here until it is mended: %2")
        .arg(path, _fault);
  }
  if (_lists.faults.empty()) return {};
  QStringList faults;
  for (const std::string& fault : _lists.faults) faults << toQString(fault);
  return tr("Some of %1 cannot be used and is left out:").arg(path) + '\n' + faults.join('\n');
}

const CustomCleaner* PersonalLists::cleaner(std::string_view token) const {
  return findIn(
      _lists.cleaners, [](const auto& entry) { return entry.token; }, token);
}

const CustomGroup* PersonalLists::group(std::string_view name) const {
  return findIn(
      _lists.groups, [](const auto& entry) { return entry.name; }, name);
}

std::vector<std::string> PersonalLists::builtInTokens() const {
  std::vector<std::string> tokens{std::string(undoToken)};
  for (const auto& [token, clean] : _builtIn.builtInCleaners()) tokens.push_back(token);
  std::sort(tokens.begin(), tokens.end(), [this](const auto& left, const auto& right) {
    return nameOf(left).localeAwareCompare(nameOf(right)) < 0;
  });
  return tokens;
}

std::optional<std::string_view> PersonalLists::infoText(std::string_view token,
                                                        std::string_view key) const {
  const Dictionary* tokens = _defaults.dictionary(listKey::tokenInfo);
  const Dictionary* info = tokens ? tokens->dictionary(token) : nullptr;
  return info ? info->string(key) : std::nullopt;
}

QString PersonalLists::nameOf(std::string_view token) const {
  if (const CustomCleaner* own = cleaner(token)) return toQString(own->name);
  return toQString(infoText(token, listKey::name).value_or(token));
}

QString PersonalLists::descriptionOf(std::string_view token) const {
  if (const CustomCleaner* own = cleaner(token)) return toQString(own->description);
  return toQString(infoText(token, listKey::description).value_or(""));
}

std::string PersonalLists::sampleOf(std::string_view token) const {
  return std::string(infoText(token, sampleKey).value_or(""));
}

/// What was shown too early goes back.
Error PersonalLists::refused(Error error) {
  emit changed();
  return error;
}

std::optional<Error> PersonalLists::stored(const std::optional<Error>& failure) {
  read();
  if (!failure) return std::nullopt;
  return refused(
      {tr("%1 could not be changed: %2")
           .arg(toQString(_file.path().string()), toQString(failure->localizedDescription))
           .toStdString()});
}

Result<std::string> PersonalLists::addCleaner(CustomCleaner cleaner) {
  read();
  const auto builtIn = builtInTokens();
  cleaner.name = freeName(cleaner.name, [&](const std::string& name) {
    const std::string token = std::string(customTokenPrefix) + name;
    const auto hasName = [&](const std::string& known) { return nameOf(known) == toQString(name); };
    return this->cleaner(token) || std::ranges::count(_lists.tokensLeftOut, token) ||
           std::ranges::any_of(builtIn, hasName) ||
           findIn(
               _lists.cleaners, [](const auto& entry) { return entry.name; }, name);
  });
  cleaner.token = std::string(customTokenPrefix) + cleaner.name;
  if (auto failure = stored(_file.storeCleaner(cleaner))) return *std::move(failure);
  return cleaner.token;
}

std::optional<Error> PersonalLists::changeCleaner(
    const std::string& token, const std::function<void(CustomCleaner&)>& change) {
  read();
  const CustomCleaner* stands = cleaner(token);
  if (!stands) {
    return refused(_fault.isEmpty() ? changedElsewhere() : Error{faults().toStdString()});
  }
  CustomCleaner wanted = *stands;
  change(wanted);
  if (wanted.name.empty()) return refused({tr("A cleaner needs a name.").toStdString()});
  return stored(_file.storeCleaner(wanted));
}

std::optional<Error> PersonalLists::removeCleaner(const std::string& token) {
  return stored(_file.removeCleaner(token));
}

std::optional<Error> PersonalLists::nameFault(const std::string& name) const {
  if (name.empty()) return Error{tr("A group needs a name.").toStdString()};
  const Array* builtIn = _defaults.array(listKey::automaticNames);
  const bool isTaken =
      group(name) || name == customGroup ||
      (builtIn && std::find(builtIn->begin(), builtIn->end(), Value(name)) != builtIn->end());
  if (!isTaken) return std::nullopt;
  return Error{tr("There is a group \"%1\" already.").arg(toQString(name)).toStdString()};
}

Result<std::string> PersonalLists::addGroup(const QString& name) {
  read();
  const std::string free = freeName(
      name.toStdString(), [this](const std::string& n) { return nameFault(n).has_value(); });
  if (auto failure = stored(_file.storeGroup({free, {}}))) return *std::move(failure);
  return free;
}

std::optional<Error> PersonalLists::renameGroup(const std::string& name,
                                                const std::string& newName) {
  if (name == newName) return std::nullopt;
  read();
  const CustomGroup* stands = group(name);
  if (!stands) return refused(changedElsewhere());
  if (auto fault = nameFault(newName)) return refused(*fault);
  CustomGroup wanted = *stands;
  wanted.name = newName;
  return stored(_file.storeGroup(wanted, name));
}

std::optional<Error> PersonalLists::changeEntries(const std::string& name,
                                                  const std::vector<CustomGroup::Entry>& shown,
                                                  const std::vector<CustomGroup::Entry>& wanted) {
  read();
  const CustomGroup* stands = group(name);
  if (!stands || stands->entries != shown) return refused(changedElsewhere());
  return stored(_file.storeGroup({name, wanted}));
}

std::optional<Error> PersonalLists::removeGroup(const std::string& name) {
  return stored(_file.removeGroup(name));
}

std::optional<Error> PersonalLists::moveGroup(const std::string& name, const std::string& before) {
  return stored(_file.moveGroup(name, before));
}

}  // namespace qf
