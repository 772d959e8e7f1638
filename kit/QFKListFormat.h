// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace qf {

/// The keys of the list data; docs/files.md has the format.
namespace listKey {
inline constexpr std::string_view textEncoding = "^^TEXT-ENCODING^^";
inline constexpr std::string_view tokenInfo = "^^TOKENINFO^^";
inline constexpr std::string_view automaticNames = "^^AUTOMATIC-NAMES^^";
inline constexpr std::string_view userListsNames = "^^USERLISTS-NAMES^^";
inline constexpr std::string_view master = "^^MASTER^^";
// of a token's info and of a group
inline constexpr std::string_view name = "name";
inline constexpr std::string_view description = "description";
inline constexpr std::string_view richList = "richlist";
// of an entry of a group
inline constexpr std::string_view token = "token";
inline constexpr std::string_view hexColor = "hexColor";
}  // namespace listKey

/// Tokens that name no cleaner.
namespace specialToken {
inline constexpr std::string_view labelPrefix = "#LABEL:";
inline constexpr std::string_view spacer = "#SPACER";
inline constexpr std::string_view nothing = "#NOTHING";
inline bool isLabel(std::string_view token) { return token.starts_with(labelPrefix); }
/// The prefix of a label.
inline std::string_view labelText(std::string_view token) {
  return token.substr(labelPrefix.size());
}
}  // namespace specialToken

}  // namespace qf
