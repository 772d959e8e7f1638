// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/Result.h"
#include "foundation/Value.h"
#include "host/Availability.h"

namespace qf {

/// The name, in commands, of the pasteboard behind Copy and Paste.
inline constexpr std::string_view NSGeneralPboard = "NSGeneralPboard";

/// Why there is nothing to read: what other applications copied is a picture, say.
inline constexpr std::string_view noTextReason = "there is no text on the clipboard";

/// The type of plain text in UTF-8.
inline constexpr std::string_view pasteboardTypeString = "text/plain;charset=utf-8";

/// One item on a pasteboard with all its representations, best first.
struct PasteboardItem {
  std::vector<std::pair<std::string, Data>> representations;
  bool operator==(const PasteboardItem&) const = default;
};

/// A place from which applications take what others put there. Any thread. It goes on serving other
/// applications while the caller's thread waits for something else. A read gives up on an owner
/// that stops for 1 s, or that takes longer than 3 s and another 1 s for each 10 MB it has given.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;
  virtual Availability availability() const = 0;

  virtual std::string name() const = 0;
  /// Differs after every change of the contents, by whatever application. Never blocks.
  virtual std::int64_t changeCount() const = 0;

  /// The plain text, or why it cannot be had: there is none, it is larger than 256 MiB, or its
  /// owner does not give it.
  virtual Result<std::string> text() const = 0;
  /// The plain text, or nothing where it cannot be had.
  std::optional<std::string> string() const {
    auto found = text();
    return found ? std::optional(*std::move(found)) : std::nullopt;
  }
  /// Everything, with its data. A representation that the owner does not give is left out.
  virtual std::vector<PasteboardItem> items() const = 0;

  virtual void clearContents() = 0;
  /// Replaces the contents; they stay readable by everyone until this process ends or another
  /// application copies. False when the pasteboard could not be taken.
  virtual bool setString(std::string_view text) = 0;
  virtual bool setItems(std::vector<PasteboardItem> items) = 0;

  /// Names the contents: the same text in every process of the session, another one after each
  /// change by any application. Never blocks. It does not say what the contents are.
  virtual std::string contentsIdentifier() const = 0;
  /// Whether the contents still are the ones that another process, or this one, named so. Waits
  /// until all changes up to now are known, at most 2 s; false after that.
  virtual bool hasContents(std::string_view identifier) const = 0;
  /// Replaces the contents that are named so, and no others: where another application was first,
  /// its contents stay. Answers the name of the new contents; nothing where they were not replaced.
  virtual std::optional<std::string> replaceContents(std::string_view identifier,
                                                     std::vector<PasteboardItem> items) = 0;
};

/// The pasteboards by name.
class Pasteboards {
 public:
  virtual ~Pasteboards() = default;
  virtual Pasteboard& generalPasteboard() = 0;
  /// Null for a name that stands for none.
  virtual Pasteboard* pasteboardWithName(std::string_view name) = 0;
};

}  // namespace qf
