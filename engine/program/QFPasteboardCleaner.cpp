// SPDX-License-Identifier: Apache-2.0
#include "engine/program/QFPasteboardCleaner.h"

#include <algorithm>
#include <utility>

#include "engine/lists/CustomLists.h"
#include "engine/lists/QFCleanerLibrary.h"

namespace qf {
namespace {

using Items = std::vector<PasteboardItem>;
using Outcome = Cleaning::Outcome;

/// By this form password managers ask to keep what they copy out of histories.
constexpr std::string_view secretType = "x-kde-passwordManagerHint";

Cleaning refused(std::string reason) { return {.reason = std::move(reason)}; }

bool isLate(const EventHints& hints) {
  return hints.deadline && EventHints::Clock::now() > *hints.deadline;
}

Cleaning late() { return {.outcome = Outcome::late, .reason = "the command came too late"}; }

Cleaning otherContents() {
  return {.outcome = Outcome::otherContents, .reason = "something else was copied meanwhile"};
}

template <class IsType>
bool hasForm(const Items& items, IsType&& isType) {
  return std::ranges::any_of(items, [&](const PasteboardItem& item) {
    return std::ranges::any_of(item.representations,
                               [&](const auto& form) { return isType(form.first); });
  });
}

/// GTK's text fields offer a form of their own for text that has no formatting either.
bool hasFormatting(const Items& items) {
  return hasForm(items, [](const std::string& type) {
    return type.find('/') != std::string::npos && !type.starts_with("text/plain") &&
           type != "application/x-gtk-text-buffer-rich-text";
  });
}

Items plainText(std::string_view text) {
  return {{{{std::string(pasteboardTypeString), Data(text.begin(), text.end())}}}};
}

/// Leaves out what does not fit; the plain text always does.
Items withinCap(Items items, std::size_t cap) {
  for (PasteboardItem& item : items) {
    std::erase_if(item.representations, [&cap](const auto& representation) {
      const std::size_t size = representation.second.size();
      if (size > cap) return representation.first != pasteboardTypeString;
      cap -= size;
      return false;
    });
  }
  std::erase_if(items, [](const PasteboardItem& item) { return item.representations.empty(); });
  return items;
}

/// The contents as they are at this moment, when no sender has named them.
std::string currentIdentifier(const Pasteboard& pasteboard) {
  pasteboard.hasContents({});  // waits until all changes up to now are known
  return pasteboard.contentsIdentifier();
}

}  // namespace

QFPasteboardCleaner::QFPasteboardCleaner(Pasteboards& pasteboards, const QFCleanerLibrary& library)
    : _pasteboards(pasteboards), _library(library) {}

Cleaning QFPasteboardCleaner::clean(std::string_view pasteboardName, std::string_view token,
                                    const EventHints& hints) {
  if (isSpecial(token)) return refused("");
  if (isLate(hints)) return late();
  Pasteboard* pasteboard = _pasteboards.pasteboardWithName(pasteboardName);
  if (!pasteboard) return refused("there is no clipboard of that name");
  if (hints.clipboard && !pasteboard->hasContents(*hints.clipboard)) return otherContents();

  Contents contents{
      hints.clipboard ? *hints.clipboard : currentIdentifier(*pasteboard), {}, pasteboard->items()};
  if (hasForm(contents.items, [](const std::string& type) { return type == secretType; })) {
    return refused("the clipboard holds a password or another secret");
  }
  auto text = pasteboard->text();
  if (!text) return refused(text.error().localizedDescription);
  contents.text = *std::move(text);

  const Result<Replacement> wanted =
      token == undoToken ? takenBack(contents, pasteboardName) : replacement(contents, token);
  if (!wanted) return refused(wanted.error().localizedDescription);
  if (changesNothing(*wanted, contents, token)) return {.outcome = Outcome::unchanged};
  if (isLate(hints)) return late();
  auto placed = pasteboard->replaceContents(contents.identifier, wanted->items);
  if (!placed && !pasteboard->hasContents(contents.identifier)) return otherContents();
  if (!placed) return refused("the clipboard could not be taken");
  contents.items = withinCap(std::move(contents.items), undoCap);
  _last = Done{std::string(pasteboardName), std::move(contents), wanted->text};
  return {.outcome = Outcome::cleaned, .contents = *std::move(placed)};
}

Result<QFPasteboardCleaner::Replacement> QFPasteboardCleaner::replacement(
    const Contents& contents, std::string_view token) const {
  Result<std::string> cleaned = _library.clean(token, contents.text);
  if (!cleaned) return cleaned.error();
  Items items = plainText(*cleaned);
  return Replacement{*std::move(cleaned), std::move(items)};
}

/// What is undone stands alone on the clipboard, or once in a text that holds more: an application
/// where nothing was selected has copied all of it.
Result<QFPasteboardCleaner::Replacement> QFPasteboardCleaner::takenBack(
    const Contents& contents, std::string_view pasteboardName) const {
  if (!_last || _last->pasteboardName != pasteboardName) {
    return Error{"there is no cleaning to undo"};
  }
  if (contents.text == _last->result) return Replacement{_last->before.text, _last->before.items};
  const std::string& result = _last->result;
  const std::size_t place = result.empty() ? std::string::npos : contents.text.find(result);
  if (place == std::string::npos) {
    return Error{"what was copied is not the result of the last cleaning"};
  }
  if (contents.text.find(result, place + 1) != std::string::npos) {
    return Error{"the result of the last cleaning stands in this text more than once"};
  }
  std::string text = contents.text;
  text.replace(place, result.size(), _last->before.text);
  Items items = plainText(text);
  return Replacement{std::move(text), std::move(items)};
}

bool QFPasteboardCleaner::changesNothing(const Replacement& replacement, const Contents& contents,
                                         std::string_view token) const {
  if (replacement.text != contents.text || token == undoToken) return false;
  return !_library.removesFormatting(token) || !hasFormatting(contents.items);
}

}  // namespace qf
