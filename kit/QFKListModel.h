// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "foundation/Color.h"
#include "foundation/Value.h"
#include "kit/QFKInvertedDictionary.h"

namespace qf {

class Bundle;

/// The engine's groups and cleaners, with all queries about them. Empty until the first
/// `setListInfo`. No query touches the disk. A copy is cheap and keeps the lists as they are now.
/// Main thread.
class QFKListModel {
 public:
  using Names = std::optional<std::vector<std::string>>;

  /// The bundle must outlive the model.
  explicit QFKListModel(const Bundle& bundle);

  /// Replaces everything by this list data and indexes it; docs/files.md describes the format.
  /// Parts of the wrong kind count as missing.
  void setListInfo(Dictionary data);
  Dictionary listData() const { return _lists->info; }

  /// Null without token info.
  const Dictionary* tokenDictionary() const;
  /// The token info inverted: its keys are the info dictionaries.
  const QFKInvertedDictionary& reverseTokenDictionary() const {
    return _lists->reverseTokenDictionary;
  }
  QFKInvertedDictionary invertedDictionary(Value dictionary) const;

  // Nothing before the first load and for list data without such an entry.
  const Names& textEncodingList() const { return _lists->textEncodingList; }
  const Names& builtInGroupNames() const { return _lists->builtInGroupNames; }
  const Names& userGroupNames() const { return _lists->userGroupNames; }

  // Empty for an unknown group.
  std::vector<std::string> tokenListForGroup(std::string_view group) const;
  /// The group's entries in their order, each a dictionary.
  Array namedRichList(std::string_view group) const;
  Array infoForGroup(std::string_view group) const { return namedRichList(group); }
  std::vector<std::string> cleanerApplyList() const { return tokenListForGroup("Library"); }

  /// The text shown for the token: its name, a label's text, else the token. Options have no
  /// effect.
  std::string nameForToken(std::string_view token, std::int64_t options = 0) const;
  std::string labelNameForToken(std::string_view token) const;
  std::string descriptionForToken(std::string_view token) const;
  /// The name itself where no token is found for it.
  std::string tokenForName(std::string_view name) const;
  std::string tokenFromLabelName(std::optional<std::string_view> text) const;
  bool tokenIsLabel(std::string_view token) const;
  bool tokenIsSeparator(std::string_view token) const;

  /// The colour of "#" and six hexadecimal digits; black, and a log line, for another length.
  Color colorWithHexColorString(std::optional<std::string_view> text) const;
  /// Black for an entry without a colour, or when there is no such entry.
  Color colorAtIndex(std::int64_t index, std::string_view group) const;
  /// The last coloured entry of that token in the group decides.
  Color colorForItem(std::string_view token, std::string_view group) const;

  /// Whether the engine offers the encoding, by its name with or without the family before it.
  bool isValidTextEncoding(std::string_view name) const;

 private:
  // Colours by token. The views lead into the group's own items.
  using ColorIndex = std::unordered_map<std::string_view, std::vector<std::string_view>>;

  struct Group {
    Array items;
    mutable std::optional<ColorIndex> colors;  // made on first use: one walk instead of one per row
  };

  struct Lists {
    Dictionary info;
    std::map<std::string, Group, std::less<>> groups;
    QFKInvertedDictionary reverseTokenDictionary;
    Names textEncodingList;
    Names builtInGroupNames;
    Names userGroupNames;
  };

  const Group* group(std::string_view name) const;
  const Dictionary* infoForToken(std::string_view token) const;

  const Bundle& _bundle;
  std::shared_ptr<const Lists> _lists = std::make_shared<const Lists>();
};

}  // namespace qf
