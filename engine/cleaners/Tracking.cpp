// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Tracking.h"

#include <algorithm>
#include <vector>

#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/TrackingList.h"
#include "foundation/Text.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;

/// A name that may end with "*", which stands for any rest.
bool matches(std::string_view pattern, std::string_view name) {
  if (!pattern.ends_with('*')) return pattern == name;
  return name.starts_with(pattern.substr(0, pattern.size() - 1));
}

struct Parameter {
  std::string host;  ///< empty for every one
  std::string name;  ///< in small letters
};

const std::vector<Parameter>& parameters() {
  static const std::vector<Parameter> list = [] {
    std::vector<Parameter> result;
    for (const std::string_view line : lineTexts(trackingList)) {
      if (line.empty() || line[0] == '#') continue;
      const std::size_t blank = line.find(' ');
      const bool hasHost = blank != npos;
      result.push_back({std::string(hasHost ? line.substr(0, blank) : ""),
                        lowercased(hasHost ? line.substr(blank + 1) : line)});
    }
    return result;
  }();
  return list;
}

std::string hostOf(std::string_view address) {
  const std::size_t scheme = address.find("://");
  if (scheme != npos) address.remove_prefix(scheme + 3);
  return lowercased(address.substr(0, address.find_first_of("/?#:")));
}

/// Whether the host is the one of the list, or below it: "music.youtube.com" is below
/// "youtube.com".
bool isHost(std::string_view host, std::string_view listed) {
  for (;;) {
    if (matches(listed, host)) return true;
    const std::size_t dot = host.find('.');
    if (dot == npos) return false;
    host.remove_prefix(dot + 1);
  }
}

bool isTracking(std::string_view host, std::string_view parameter) {
  const std::string name = lowercased(parameter.substr(0, parameter.find('=')));
  return std::any_of(parameters().begin(), parameters().end(), [&](const Parameter& listed) {
    return matches(listed.name, name) && (listed.host.empty() || isHost(host, listed.host));
  });
}

}  // namespace

std::string withoutTracking(std::string_view address) {
  constexpr std::string_view entity = "&amp;";
  const std::size_t fragment = std::min(address.find('#'), address.size());
  const std::size_t query = address.find('?');
  if (query >= fragment) return std::string(address);
  const std::string host = hostOf(address);
  const std::string_view all = address.substr(query + 1, fragment - query - 1);
  std::string kept;
  std::string_view glue;  // what parts the parameter from the one before
  for (std::size_t position = 0; position <= all.size();) {
    const std::size_t end = std::min(all.find('&', position), all.size());
    const std::string_view parameter = all.substr(position, end - position);
    if (!isTracking(host, parameter)) kept.append(kept.empty() ? "?" : glue).append(parameter);
    glue = all.substr(end).starts_with(entity) ? entity : "&";
    position = end + glue.size();
  }
  if (kept == "?") kept.clear();
  return std::string(address.substr(0, query)).append(kept).append(address.substr(fragment));
}

}  // namespace qf
