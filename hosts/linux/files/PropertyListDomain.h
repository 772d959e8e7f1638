// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/NotificationCenter.h"
#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

/// A file of settings that several processes read and write: an XML property list whose root is a
/// dictionary. Read again whenever the file is another than the one last read. One thread at a
/// time.
class PropertyListDomain {
 public:
  /// Without a file everything is remembered for this process only.
  explicit PropertyListDomain(std::optional<std::filesystem::path> file);

  std::optional<Value> value(std::string_view key);
  /// Nothing removes the key. Where the file cannot be written, that is logged, and the change
  /// waits for the next store; this process sees it already. A value that XML cannot hold (a
  /// control character) is left out, with a line in the log, and the key keeps the value it had.
  void store(std::string_view key, std::optional<Value> value);

  static constexpr std::string_view changed = "changed";
  /// Where `changed` is posted after each change.
  NotificationCenter& changes() { return _changes; }

 private:
  struct Stamp {
    ino_t file;
    off_t size;
    time_t seconds;
    long nanoseconds;
    bool operator==(const Stamp&) const = default;
  };

  std::optional<Stamp> stamp() const;
  static bool isSettled(const Stamp& stamp);
  void readAgainIfChanged();
  Result<Dictionary> read() const;
  void flush();

  std::optional<std::filesystem::path> _file;
  std::optional<Stamp> _stamp;
  Dictionary _stored;
  std::string _fault;  // why the file cannot be read; empty while it can
  std::map<std::string, std::optional<Value>, std::less<>> _unstored;
  NotificationCenter _changes;
};

}  // namespace qf
