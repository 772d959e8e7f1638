// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiWindows.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <algorithm>

#include "hosts/linux/accessibility/bus/AtspiBus.h"
#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"

namespace qf {
namespace {

constexpr std::size_t mostWindows = 64;

}  // namespace

AtspiWindows::AtspiWindows(AtspiBus& bus) {
  bus.setConnectionHandler([this, &bus] { listen(bus); });
}

void AtspiWindows::listen(AtspiBus& bus) {
  _latestFirst.clear();
  // A window that loses the input had it until then: that tells of windows that were active before
  // this program started.
  for (const char* event : {"Activate", "Deactivate"}) {
    bus.requestEvent(QStringLiteral("window:%1").arg(QString(event).toLower()));
    bus.connection().connect({}, {}, QStringLiteral("org.a11y.atspi.Event.Window"), event, this,
                             SLOT(windowGotOrLostInput(QDBusMessage)));
  }
}

void AtspiWindows::windowGotOrLostInput(const QDBusMessage& event) {
  noteActive({event.service(), event.path()});
}

std::size_t AtspiWindows::rank(const AtspiReference& window) const {
  const auto found = std::find_if(_latestFirst.begin(), _latestFirst.end(),
                                  [&](const auto& known) { return known->object == window; });
  return static_cast<std::size_t>(found - _latestFirst.begin());
}

std::shared_ptr<AtspiWindow> AtspiWindows::window(const AtspiReference& object) {
  const std::size_t place = rank(object);
  if (place < _latestFirst.size()) return _latestFirst[place];
  if (_latestFirst.size() == mostWindows) _latestFirst.pop_back();
  _latestFirst.push_back(std::make_shared<AtspiWindow>(AtspiWindow{object, {}, nullptr}));
  return _latestFirst.back();
}

void AtspiWindows::noteActive(const AtspiReference& object) {
  window(object);
  const auto place = _latestFirst.begin() + static_cast<std::ptrdiff_t>(rank(object));
  std::rotate(_latestFirst.begin(), place, place + 1);
}

AtspiWindows::Choice AtspiWindows::inputWindow(AtspiRequest& application) {
  // What has been told so far, without running anything else of the event loop.
  QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);

  const std::vector<AtspiReference> objects = application.children(application.roots());
  std::vector<QDBusMessage> questions;
  for (const AtspiReference& object : objects) {
    questions.push_back(atspi::getState(object));
    questions.push_back(atspi::getRole(object));
  }
  const auto answers = application.ask(questions);
  struct Candidate {
    bool isHidden, isInactive;
    std::size_t rank;
    bool isNoFrame;
    std::size_t place;
    auto operator<=>(const Candidate&) const = default;
  };
  std::vector<Candidate> candidates;
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const AtspiStates states = atspi::states(answers[2 * i]);
    candidates.push_back({!states.has(AtspiState::showing) && !states.has(AtspiState::visible),
                          !states.has(AtspiState::active), rank(objects[i]),
                          atspi::number(answers[2 * i + 1]) != atspirole::frame, i});
  }
  const auto best = std::min_element(candidates.begin(), candidates.end());
  if (best == candidates.end() || best->isHidden) return {};
  const AtspiReference& object = objects[best->place];
  if (!best->isInactive) noteActive(object);
  return {window(object), !best->isInactive};
}

}  // namespace qf
