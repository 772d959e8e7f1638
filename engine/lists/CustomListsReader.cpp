// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/CustomListsReader.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "engine/cleaners/CleanerWithArgument.h"
#include "engine/program/QFPasteboardCleaner.h"

namespace qf {
namespace {

using JSON = nlohmann::ordered_json;

constexpr std::chrono::milliseconds findingLimit{1000};

bool isColor(std::string_view text) {
  return text.size() == 7 && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

/// What no property list in XML can hold: the whole list would not be published.
bool hasControlCharacter(std::string_view text) {
  const auto isControl = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
  };
  return std::ranges::any_of(text, isControl) || text.find("\uFFFE") != std::string_view::npos ||
         text.find("\uFFFF") != std::string_view::npos;
}

class Reader {
 public:
  explicit Reader(const QFCleanerLibrary::Cleaners& builtIn) : _builtIn(builtIn) {}

  CustomLists read(const JSON& document) && {
    if (!document.is_object()) {
      fault("the file", "must hold an object");
      return std::move(_lists);
    }
    forEach(document, "cleaners", "", [this](const JSON& entry, const std::string& place) {
      if (auto cleaner = readCleaner(entry, place)) {
        _tokens.insert(cleaner->token);
        _lists.cleaners.push_back(*std::move(cleaner));
      } else {
        _lists.tokensLeftOut.push_back(cleanerToken(entry));
      }
    });
    forEach(document, "groups", "", [this](const JSON& entry, const std::string& place) {
      if (auto group = readGroup(entry, place)) _lists.groups.push_back(*std::move(group));
    });
    return std::move(_lists);
  }

 private:
  void fault(const std::string& place, std::string_view what) {
    _lists.faults.push_back(place + ": " + std::string(what));
  }

  template <class Function>
  void forEach(const JSON& object, const std::string& key, const std::string& place,
               Function&& function) {
    const auto found = object.find(key);
    if (found == object.end()) return;
    const std::string here = place.empty() ? key : place + "." + key;
    if (!found->is_array()) return fault(here, "must be a list");
    for (std::size_t i = 0; i < found->size(); ++i) {
      function((*found)[i], here + "[" + std::to_string(i) + "]");
    }
  }

  /// The text under the key; empty without one. Nothing, and a fault, for another kind of value.
  std::optional<std::string> text(const JSON& object, const char* key, const std::string& place) {
    const auto found = object.find(key);
    if (found == object.end()) return "";
    if (found->is_string()) return found->get<std::string>();
    fault(place + "." + key, "must be a text");
    return std::nullopt;
  }

  /// The same for a text that is published. Nothing, and a fault, where it cannot be.
  std::optional<std::string> publishedText(const JSON& object, const char* key,
                                           const std::string& place) {
    auto result = text(object, key, place);
    if (!result || !hasControlCharacter(*result)) return result;
    fault(place + "." + key, "has a control character in it");
    return std::nullopt;
  }

  std::optional<bool> flag(const JSON& object, const char* key, const std::string& place) {
    const auto found = object.find(key);
    if (found == object.end()) return false;
    if (found->is_boolean()) return found->get<bool>();
    fault(place + "." + key, "must be true or false");
    return std::nullopt;
  }

  /// A wrong colour costs only itself.
  std::string color(const JSON& object, const std::string& place) {
    const std::string color = text(object, "color", place).value_or("");
    if (!color.empty() && !isColor(color)) {
      fault(place + ".color", "must be \"#\" and six hexadecimal digits");
    }
    return entryColor(object);
  }

  std::optional<std::string> name(const JSON& entry, const std::string& place) {
    if (!entry.is_object()) {
      fault(place, "must be an object");
      return std::nullopt;
    }
    auto name = publishedText(entry, "name", place);
    if (name && name->empty()) {
      fault(place, "needs a \"name\"");
      return std::nullopt;
    }
    return name;
  }

  std::optional<CustomCleaner> readCleaner(const JSON& entry, const std::string& place) {
    const auto name = this->name(entry, place);
    if (!name) return std::nullopt;
    const auto token = publishedText(entry, "token", place),
               description = publishedText(entry, "description", place);
    if (!token || !description) return std::nullopt;
    CustomCleaner cleaner{*name, cleanerToken(entry), *description, color(entry, place), {}};
    if (_builtIn.contains(cleaner.token) || cleaner.token == undoToken ||
        isSpecial(cleaner.token) || _tokens.contains(cleaner.token)) {
      fault(place, "the token \"" + cleaner.token + "\" is taken");
      return std::nullopt;
    }
    const std::size_t faultsBefore = _lists.faults.size();
    forEach(entry, "steps", place, [&](const JSON& step, const std::string& stepPlace) {
      if (auto read = readStep(step, stepPlace)) cleaner.steps.push_back(*std::move(read));
    });
    // Half a cleaner would do something else than what was meant.
    if (_lists.faults.size() > faultsBefore) return std::nullopt;
    if (cleaner.steps.empty()) {
      fault(place, "needs \"steps\"");
      return std::nullopt;
    }
    return cleaner;
  }

  std::optional<CustomStep> readStep(const JSON& step, const std::string& place) {
    if (step.is_string()) {
      const std::string token = step.get<std::string>();
      if (_builtIn.contains(token) || cleanerWithArgument(token)) return token;
      fault(place, "there is no built-in cleaner \"" + token + '"');
      return std::nullopt;
    }
    if (!step.is_object()) {
      fault(place, "must be a token or an object");
      return std::nullopt;
    }
    const auto find = text(step, "find", place), replace = text(step, "replace", place);
    const auto isExpression = flag(step, "regex", place), ignores = flag(step, "ignoreCase", place);
    if (!find || !replace || !isExpression || !ignores) return std::nullopt;
    const FindReplace result{*find, *replace, *isExpression, *ignores};
    if (const auto replacer = makeReplacer(result); !replacer) {
      fault(place, replacer.error().localizedDescription);
      return std::nullopt;
    }
    return result;
  }

  std::optional<CustomGroup> readGroup(const JSON& entry, const std::string& place) {
    const auto name = this->name(entry, place);
    if (!name) return std::nullopt;
    const bool taken = *name == customGroup || !_groupNames.insert(*name).second;
    if (taken) {
      fault(place, "the name \"" + *name + "\" is taken");
      return std::nullopt;
    }
    CustomGroup group{*name, {}};
    forEach(entry, "entries", place, [&](const JSON& item, const std::string& itemPlace) {
      const auto token = item.is_string()   ? std::optional(item.get<std::string>())
                         : item.is_object() ? text(item, "token", itemPlace)
                                            : std::optional<std::string>("");
      if (!token) return;
      if (hasControlCharacter(*token)) return fault(itemPlace, "has a control character in it");
      const bool isKnown = _builtIn.contains(*token) || cleanerWithArgument(*token) ||
                           *token == undoToken || isSpecial(*token) || _tokens.contains(*token);
      if (!isKnown) fault(itemPlace, "there is no cleaner \"" + *token + '"');
      if (token->empty()) return;
      group.entries.push_back({*token, item.is_object() ? color(item, itemPlace) : "", isKnown});
    });
    return group;
  }

  const QFCleanerLibrary::Cleaners& _builtIn;
  CustomLists _lists;
  std::set<std::string> _tokens;
  std::set<std::string> _groupNames;
};

/// Every step in one shape; a built-in one needs no deadline.
using Stage = Replacer;

Stage makeStage(const CustomStep& step, const QFCleanerLibrary::Cleaners& builtIn) {
  if (const auto* token = std::get_if<std::string>(&step)) {
    const auto found = builtIn.find(*token);
    const CleanerFunction clean =
        found == builtIn.end() ? cleanerWithArgument(*token).value() : found->second;
    return [clean](std::string_view text, Deadline) { return clean(text); };
  }
  return *makeReplacer(std::get<FindReplace>(step));
}

}  // namespace

std::string textIn(const JSON& object, const char* key) {
  const auto found = object.is_object() ? object.find(key) : object.end();
  return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

std::string cleanerToken(const JSON& entry) {
  const std::string token = textIn(entry, "token");
  return token.empty() ? std::string(customTokenPrefix) + textIn(entry, "name") : token;
}

std::string entryColor(const JSON& entry) {
  const std::string color = textIn(entry, "color");
  return isColor(color) ? color : "";
}

CustomLists readCustomLists(const JSON& document,
                            const QFCleanerLibrary::Cleaners& builtInCleaners) {
  return Reader(builtInCleaners).read(document);
}

QFCleanerLibrary::Tokens customFormattingRemovers(const CustomLists& lists,
                                                  const QFCleanerLibrary& library) {
  QFCleanerLibrary::Tokens tokens;
  const auto removes = [&library](const CustomStep& step) {
    const auto* token = std::get_if<std::string>(&step);
    return token && library.removesFormatting(*token);
  };
  for (const CustomCleaner& cleaner : lists.cleaners) {
    if (std::ranges::any_of(cleaner.steps, removes)) tokens.insert(cleaner.token);
  }
  return tokens;
}

QFCleanerLibrary::Cleaners makeCustomCleaners(const CustomLists& lists,
                                              const QFCleanerLibrary::Cleaners& builtInCleaners) {
  QFCleanerLibrary::Cleaners cleaners;
  for (const CustomCleaner& cleaner : lists.cleaners) {
    std::vector<Stage> stages;
    for (const CustomStep& step : cleaner.steps) stages.push_back(makeStage(step, builtInCleaners));
    cleaners[cleaner.token] = [stages](std::string_view text) -> Result<std::string> {
      const Deadline deadline = std::chrono::steady_clock::now() + findingLimit;
      std::string result(text);
      for (const Stage& stage : stages) {
        Result<std::string> next = stage(result, deadline);
        if (!next) return next;
        result = *std::move(next);
      }
      return result;
    };
  }
  return cleaners;
}

}  // namespace qf
