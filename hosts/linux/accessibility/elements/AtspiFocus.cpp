// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiFocus.h"

#include <algorithm>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"

namespace qf {
namespace {

constexpr std::size_t mostObjects = 2000;
constexpr int deepest = 40;

/// Objects that may have any number of others below them, none of which takes text. Documents do,
/// though LibreOffice's say that they manage their descendants.
bool isCrowd(uint role, AtspiStates states) {
  if (role == atspirole::documentText || role == atspirole::documentFrame) return false;
  return role == atspirole::menuBar || role == atspirole::list || role == atspirole::table ||
         role == atspirole::tree || role == atspirole::treeTable ||
         states.has(AtspiState::managesDescendants);
}

/// How likely the object with the focus is the one that takes the keys. Qt calls the current tab
/// focused as well, and what an entry lies in.
enum class Likelihood { none, container, unknown, notText, text, takesText };

Likelihood likelihood(uint role, AtspiStates states) {
  // LibreOffice's menu bar keeps the focus of the last menu for itself too.
  if (!states.has(AtspiState::focused) || role == atspirole::menuBar) return Likelihood::none;
  if (states.has(AtspiState::editable) || role == atspirole::terminal) return Likelihood::takesText;
  if (holdsText(role)) return Likelihood::text;
  if (holdsNoText(role)) return Likelihood::notText;
  return isContainer(role) ? Likelihood::container : Likelihood::unknown;
}

/// Goes down level by level where something shows.
class FocusWalk {
 public:
  FocusWalk(AtspiRequest& application, const AtspiReference& window)
      : _application(application), _level{window} {}

  AtspiReference run() {
    for (int depth = 0; depth < deepest && !_level.empty() && _count < mostObjects; ++depth) {
      if (lookAtLevel()) break;
      _level = _application.children(_level);
    }
    return _focused;
  }

 private:
  /// True once what takes text is found. Leaves the objects below which to look further.
  bool lookAtLevel() {
    _level.resize(std::min(_level.size(), mostObjects - _count));
    _count += _level.size();
    std::vector<QDBusMessage> questions;
    for (const AtspiReference& object : _level) {
      questions.push_back(atspi::getState(object));
      questions.push_back(atspi::getRole(object));
    }
    const auto answers = _application.ask(questions);
    std::vector<AtspiReference> open;
    for (std::size_t i = 0; i < _level.size(); ++i) {
      const AtspiStates states = atspi::states(answers[2 * i]);
      if (!isShown(_application, states)) continue;
      const uint role = atspi::number(answers[2 * i + 1]);
      if (const Likelihood its = likelihood(role, states); its > _likelihood) {
        _likelihood = its;
        _focused = _level[i];
      }
      if (_likelihood == Likelihood::takesText) return true;
      if (!isCrowd(role, states)) open.push_back(_level[i]);
    }
    _level = std::move(open);
    return false;
  }

  AtspiRequest& _application;
  std::vector<AtspiReference> _level;
  AtspiReference _focused;
  Likelihood _likelihood = Likelihood::none;
  std::size_t _count = 0;
};

}  // namespace

// In GTK 4 nothing but windows ever says that it shows.
bool isShown(AtspiRequest& application, AtspiStates states) {
  const bool neverShows = application.toolkit() == QLatin1String("GTK");
  return states.has(neverShows ? AtspiState::visible : AtspiState::showing) &&
         !states.has(AtspiState::defunct);
}

AtspiReference searchFocusedObject(AtspiRequest& application, const AtspiReference& window) {
  return FocusWalk(application, window).run();
}

AtspiReference findFocusedObject(AtspiRequest& application, const AtspiReference& window,
                                 bool windowIsActive, const AtspiReference& remembered) {
  const AtspiStates states = remembered.isNull() ? AtspiStates() : application.states(remembered);
  // What takes no text may say that it has the focus beside what does.
  const bool hasFocus = states.has(AtspiState::focused) && states.has(AtspiState::editable);
  if (isShown(application, states) && (!windowIsActive || hasFocus)) return remembered;

  const AtspiReference found = searchFocusedObject(application, window);
  return found.isNull() && isShown(application, states) ? remembered : found;
}

}  // namespace qf
