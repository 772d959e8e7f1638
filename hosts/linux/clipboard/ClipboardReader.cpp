// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "hosts/linux/clipboard/BrokenPipeGuard.h"
#include "hosts/linux/clipboard/ClipboardText.h"
#include "hosts/linux/clipboard/SelectionFetch.h"

namespace qf {
namespace {

// No application offers as many; an owner that does is not worth the windows.
constexpr std::size_t mostTargets = 256;

// ICCCM 2.6.2 and 2.6.3: what speaks of the owner or of objects in the server, and what would
// change the owner's document.
constexpr std::array<std::string_view, 30> noContents = {"TARGETS",
                                                         "TIMESTAMP",
                                                         "MULTIPLE",
                                                         "SAVE_TARGETS",
                                                         "DELETE",
                                                         "INSERT_SELECTION",
                                                         "INSERT_PROPERTY",
                                                         "ATOM_PAIR",
                                                         "ATOM",
                                                         "INCR",
                                                         "PIXMAP",
                                                         "BITMAP",
                                                         "DRAWABLE",
                                                         "WINDOW",
                                                         "COLORMAP",
                                                         "CLIENT_WINDOW",
                                                         "HOST_NAME",
                                                         "USER",
                                                         "PROCESS",
                                                         "TASK",
                                                         "CLASS",
                                                         "NAME",
                                                         "OWNER_OS",
                                                         "LENGTH",
                                                         "LIST_LENGTH",
                                                         "CHARACTER_POSITION",
                                                         "COLUMN_NUMBER",
                                                         "LINE_NUMBER",
                                                         "FILE_NAME",
                                                         "PROCEDURE"};

bool isContents(const std::string& target) {
  return !target.empty() && std::ranges::find(noContents, target) == noContents.end();
}

const std::string* bestText(const std::vector<std::string>& targets) {
  const std::string* best = nullptr;
  for (const std::string& target : targets) {
    const auto rank = plainTextRank(target);
    if (rank && (!best || *rank < *plainTextRank(*best))) best = &target;
  }
  return best;
}

}  // namespace

ClipboardReader::ClipboardReader(const std::string& displayName)
    : _connection(displayName), _atoms(_connection) {
  if (!_connection.isAlive()) return;
  xcb_xfixes_select_selection_input(
      _connection.get(), _connection.createWindow(XCB_EVENT_MASK_NO_EVENT), _atoms.clipboard,
      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

xcb_window_t ClipboardReader::owner() {
  const std::lock_guard lock(_mutex);
  const BrokenPipeGuard guard;
  const auto answer = _connection.reply(
      xcb_get_selection_owner_reply, xcb_get_selection_owner(_connection.get(), _atoms.clipboard));
  return answer ? answer->owner : xcb_window_t{XCB_WINDOW_NONE};
}

Result<std::string> ClipboardReader::text() {
  const std::lock_guard lock(_mutex);
  const BrokenPipeGuard guard;
  if (!_connection.isAlive()) return Error{_connection.availability().reason};
  SelectionFetch fetch(_connection, _atoms);
  if (auto text = bestTextFrom(fetch)) return *std::move(text);
  if (fetch.wasTooLarge()) return Error{"the text on the clipboard is larger than 256 MiB"};
  if (fetch.ownerFailed()) {
    return Error{"the application that copied it does not hand over the text on the clipboard"};
  }
  return Error{std::string(noTextReason)};
}

std::optional<std::string> ClipboardReader::bestTextFrom(SelectionFetch& fetch) {
  // Nearly every owner knows this spelling, which saves asking for the list.
  if (auto text = fetchText(fetch, "UTF8_STRING")) return text;
  if (fetch.wasTooLarge()) return std::nullopt;
  const auto targets = fetchTargets(fetch);
  if (const std::string* best = bestText(targets)) return fetchText(fetch, *best);
  return targets.empty() ? fetchText(fetch, "STRING") : std::nullopt;
}

PasteboardItem ClipboardReader::item() {
  const std::lock_guard lock(_mutex);
  const BrokenPipeGuard guard;
  PasteboardItem item;
  if (!_connection.isAlive()) return item;
  SelectionFetch fetch(_connection, _atoms);
  auto targets = fetchTargets(fetch);
  if (targets.empty()) targets = {"UTF8_STRING"};  // an owner from before there were lists
  const std::string* best = bestText(targets);
  const std::string text = best ? *best : std::string();
  std::erase_if(targets, [&](const std::string& target) {
    return target != text && plainTextRank(target).has_value();
  });
  auto all = fetch.fetch(_connection.atoms(targets));
  for (std::size_t i = 0; i < targets.size(); ++i) {
    if (!all[i]) continue;
    if (targets[i] != text) {
      item.representations.emplace_back(std::move(targets[i]), std::move(all[i]->bytes));
    } else if (const auto decoded = textOf(*all[i])) {
      item.representations.emplace_back(pasteboardTypeString,
                                        Data(decoded->begin(), decoded->end()));
    }
  }
  return item;
}

std::optional<std::string> ClipboardReader::fetchText(SelectionFetch& fetch,
                                                      const std::string& target) {
  if (fetch.ownerFailed()) return std::nullopt;
  const xcb_atom_t atoms[] = {_connection.atom(target)};
  const auto data = std::move(fetch.fetch(atoms).front());
  return data ? textOf(*data) : std::nullopt;
}

// Some owners give what they have, whatever they are asked for.
std::optional<std::string> ClipboardReader::textOf(const SelectionData& data) {
  const auto type = data.type == _atoms.utf8String ? std::string("UTF8_STRING")
                                                   : _connection.atomNames({{data.type}}).front();
  if (data.format != 8 || !plainTextRank(type)) return std::nullopt;
  return textFromSelection(type, data.bytes);
}

std::vector<std::string> ClipboardReader::fetchTargets(SelectionFetch& fetch) {
  if (fetch.ownerFailed()) return {};
  const xcb_atom_t asked[] = {_atoms.targets};
  const auto data = std::move(fetch.fetch(asked).front());
  if (!data || data->format != 32) return {};
  std::vector<xcb_atom_t> atoms(std::min(data->bytes.size() / sizeof(xcb_atom_t), mostTargets));
  std::memcpy(atoms.data(), data->bytes.data(), atoms.size() * sizeof(xcb_atom_t));
  auto targets = _connection.atomNames(atoms);
  std::erase_if(targets, [](const std::string& target) { return !isContents(target); });
  return targets;
}

}  // namespace qf
