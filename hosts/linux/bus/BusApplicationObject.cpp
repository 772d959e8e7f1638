// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/BusApplicationObject.h"

#include <QDBusMessage>

namespace qf {

BusApplicationObject::BusApplicationObject(QString bundleIdentifier, int processIdentifier,
                                           int activationPolicy)
    : _bundleIdentifier(std::move(bundleIdentifier)),
      _processIdentifier(processIdentifier),
      _activationPolicy(activationPolicy) {}

QByteArray BusApplicationObject::HandleEvent(quint32 eventClass, quint32 eventID,
                                             const QByteArray& data) {
  return receive({eventClass, eventID, data, {}, {}}).data;
}

QByteArray BusApplicationObject::HandleEventWithHints(quint32 eventClass, quint32 eventID,
                                                      const QByteArray& data,
                                                      const QVariantMap& hints,
                                                      QVariantMap& answerHints) {
  Answer answer = receive({eventClass, eventID, data, hints, {}});
  answerHints = std::move(answer.hints);
  return answer.data;
}

BusApplicationObject::Answer BusApplicationObject::receive(Event event) {
  if (!_eventReceiver) return {};
  event.sender = message().service();
  Answer answer = _eventReceiver(event);
  if (!answer.errorName.isEmpty()) sendErrorReply(answer.errorName, answer.errorText);
  return answer;
}

void BusApplicationObject::Reopen() {
  if (_reopenHandler) _reopenHandler();
}

}  // namespace qf
