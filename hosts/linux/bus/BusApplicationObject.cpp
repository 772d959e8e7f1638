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
  if (!_eventReceiver) return {};
  const QString sender = message().service();
  Answer answer = _eventReceiver(eventClass, eventID, data, sender);
  if (!answer.errorName.isEmpty()) sendErrorReply(answer.errorName, answer.errorText);
  return answer.data;
}

void BusApplicationObject::Reopen() {
  if (_reopenHandler) _reopenHandler();
}

}  // namespace qf
