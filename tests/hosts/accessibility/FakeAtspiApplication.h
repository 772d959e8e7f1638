// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QSet>
#include <QThread>
#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace qf {

/// An application on the accessibility bus that does what a test tells it: it answers from a tree
/// of objects, late or never. It has a thread and a connection of its own, so that the test may
/// block; to others it is this process. Any thread.
class FakeAtspiApplication : public QDBusVirtualObject {
 public:
  struct Object {
    uint role = 0;
    QSet<int> states;
    QString name;
    QString keyBinding;
    int parent = 0;
    std::vector<int> children;
    QString actionName;
    std::function<void()> onAction;
    bool isText = false, isEditable = true;
    QString text;
    int selectionStart = 0, selectionEnd = 0;
    std::function<void(const QString&)> onCopy;
    std::function<QString(const QString&)> filter;  ///< what it takes of a text that is inserted
    bool admitsFiltering = false;
  };
  static constexpr int root = 0;

  FakeAtspiApplication();
  ~FakeAtspiApplication() override;

  /// Adds an object that shows and is sensitive.
  int add(int parent, uint role, const QString& keyBinding = {});
  /// Adds an editable text that has the focus. As in GTK 4, selecting is not answered.
  int addText(int parent, uint role, const QString& text);
  void change(int object, const std::function<void(Object&)>& change);
  QString textOf(int object);
  void setState(int object, int state, bool isOn);
  void sendWindowEvent(int window, const QString& event);

  void setToolkit(const QString& name) { _toolkit = name; }
  void setDelay(std::chrono::milliseconds delay) { _delay = delay; }
  /// Takes questions without answering them.
  void setSilent(bool isSilent) { _isSilent = isSilent; }

  /// How often each method was called since this was last asked.
  std::map<QString, int> takeCalls();

 private:
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
  QString introspect(const QString&) const override { return {}; }
  QVariantList answer(const QDBusMessage& message, const Object& object);
  QVariantList answerAsText(const QDBusMessage& message, Object& object);

  QThread _thread;
  QDBusConnection _connection;
  std::recursive_mutex _mutex;
  std::map<int, Object> _objects;
  std::map<QString, int> _calls;
  QString _toolkit;
  std::atomic<std::chrono::milliseconds> _delay = std::chrono::milliseconds(0);
  std::atomic<bool> _isSilent = false;
};

}  // namespace qf
