// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/PropertyListDomain.h"

#include <chrono>
#include <utility>

#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "hosts/linux/files/PrivateFiles.h"

namespace qf {

PropertyListDomain::PropertyListDomain(std::optional<std::filesystem::path> file)
    : _file(std::move(file)) {}

std::optional<Value> PropertyListDomain::value(std::string_view key) {
  if (const auto waiting = _unstored.find(key); waiting != _unstored.end()) return waiting->second;
  readAgainIfChanged();
  const Value* stored = _stored.find(key);
  return stored ? std::optional(*stored) : std::nullopt;
}

void PropertyListDomain::store(std::string_view key, std::optional<Value> value) {
  if (value) {
    const auto bytes = writePropertyList(*value, PropertyListFormat::xml);
    if (!bytes) {
      return log("The setting " + std::string(key) +
                 " cannot be stored: " + bytes.error().localizedDescription);
    }
  }
  _unstored.insert_or_assign(std::string(key), std::move(value));
  flush();
  _changes.post(changed);
}

void PropertyListDomain::flush() {
  if (!_file) return log("Settings cannot be stored: there is no home folder");
  readAgainIfChanged();
  Dictionary settings = _stored;
  for (const auto& [key, value] : _unstored) {
    if (value) {
      settings.set(key, *value);
    } else {
      settings.remove(key);
    }
  }
  const auto bytes = writePropertyList(settings, PropertyListFormat::xml);
  if (!bytes) return log("Settings cannot be stored: " + bytes.error().localizedDescription);
  auto failure = createPrivateFolder(_file->parent_path());
  if (!failure && !_fault.empty()) {
    const auto aside = putAside(*_file);
    if (!aside) failure = aside.error();
  }
  if (!failure) failure = replaceFile(*_file, *bytes);
  if (failure) return log("Settings cannot be stored: " + failure->localizedDescription);
  _unstored.clear();
}

std::optional<PropertyListDomain::Stamp> PropertyListDomain::stamp() const {
  struct stat status {};
  if (!_file || ::stat(_file->c_str(), &status) != 0) return std::nullopt;
  return Stamp{status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void PropertyListDomain::readAgainIfChanged() {
  const auto found = stamp();
  if (found && found == _stamp) return;
  const auto settings = found ? read() : Dictionary();
  const std::string fault = settings ? std::string() : settings.error().localizedDescription;
  if (!fault.empty() && fault != _fault) log("Error reading " + _file->string() + " : " + fault);
  _fault = fault;
  _stored = settings ? *settings : Dictionary();
  _stamp = found && isSettled(*found) ? found : std::nullopt;
}

// The file system's clock ticks every few milliseconds: a second change within one tick would show
// the same stamp.
bool PropertyListDomain::isSettled(const Stamp& stamp) {
  using namespace std::chrono;
  const auto changed = seconds(stamp.seconds) + nanoseconds(stamp.nanoseconds);
  return abs(system_clock::now().time_since_epoch() - changed) > milliseconds(50);
}

Result<Dictionary> PropertyListDomain::read() const {
  const auto bytes = readRegularFile(*_file);
  if (!bytes) return Error{"it is no readable file"};
  const auto root = readPropertyList(*bytes);
  if (!root) return root.error();
  if (!root->dictionary()) return Error{"its root is no dictionary"};
  return *root->dictionary();
}

}  // namespace qf
