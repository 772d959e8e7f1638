// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>

namespace qf {

/// What this process exports at `bus::applicationPath`. The bus calls it on the main thread, from
/// the run loop.
class BusApplicationObject : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.quenfold.Application1")
  Q_PROPERTY(QString BundleIdentifier READ bundleIdentifier SCRIPTABLE true)
  Q_PROPERTY(int ProcessIdentifier READ processIdentifier SCRIPTABLE true)
  Q_PROPERTY(int ActivationPolicy READ activationPolicy SCRIPTABLE true)
  Q_PROPERTY(bool TakesHints READ takesHints SCRIPTABLE true)

 public:
  /// The reply's bytes, or a D-Bus error when `errorName` is not empty.
  struct Answer {
    QByteArray data;
    QString errorName;
    QString errorText;
    QVariantMap hints;
  };
  struct Event {
    quint32 eventClass;
    quint32 eventID;
    QByteArray data;
    QVariantMap hints;
    QString sender;
  };
  using EventReceiver = std::function<Answer(const Event&)>;

  BusApplicationObject(QString bundleIdentifier, int processIdentifier, int activationPolicy);

  QString bundleIdentifier() const { return _bundleIdentifier; }
  int processIdentifier() const { return _processIdentifier; }
  int activationPolicy() const { return _activationPolicy; }
  bool takesHints() const { return true; }
  void setActivationPolicy(int policy) { _activationPolicy = policy; }
  void setEventReceiver(EventReceiver receiver) { _eventReceiver = std::move(receiver); }
  void setReopenHandler(std::function<void()> handler) { _reopenHandler = std::move(handler); }

 public slots:
  Q_SCRIPTABLE QByteArray HandleEvent(quint32 eventClass, quint32 eventID, const QByteArray& data);
  /// The answer's hints are a second value of the reply.
  Q_SCRIPTABLE QByteArray HandleEventWithHints(quint32 eventClass, quint32 eventID,
                                               const QByteArray& data, const QVariantMap& hints,
                                               QVariantMap& answerHints);
  Q_SCRIPTABLE void Reopen();

 private:
  Answer receive(Event event);

  QString _bundleIdentifier;
  int _processIdentifier;
  int _activationPolicy;
  EventReceiver _eventReceiver;
  std::function<void()> _reopenHandler;
};

}  // namespace qf
