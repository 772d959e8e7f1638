// SPDX-License-Identifier: Apache-2.0
#include "tests/hosts/accessibility/FakeAtspiApplication.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <stdexcept>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

QDBusArgument& operator<<(QDBusArgument& argument, const AtspiReference& reference) {
  argument.beginStructure();
  const QString path = reference.path.isEmpty() ? "/" : reference.path;
  argument << reference.service << QDBusObjectPath(path);
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AtspiReference&) { return argument; }

namespace {

const QString pathPrefix = "/org/a11y/atspi/accessible/";
const QString registry = "org.a11y.atspi.Registry";

QString pathOf(int object) {
  return pathPrefix + (object == FakeAtspiApplication::root ? "root" : QString::number(object));
}

QDBusConnection connectToAccessibilityBus() {
  const auto address = QDBusConnection::sessionBus().call(
      atspi::methodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
  static int count = 0;
  return QDBusConnection::connectToBus(atspi::text(address),
                                       QString("fake-application-%1").arg(++count));
}

}  // namespace

FakeAtspiApplication::FakeAtspiApplication() : _connection(connectToAccessibilityBus()) {
  qDBusRegisterMetaType<AtspiReference>();
  qDBusRegisterMetaType<QList<AtspiReference>>();
  _objects[root];
  moveToThread(&_thread);
  _thread.start();
  QMetaObject::invokeMethod(
      this,
      [this] {
        _connection.registerVirtualObject(pathPrefix.chopped(1), this, QDBusConnection::SubPath);
      },
      Qt::BlockingQueuedConnection);
  const AtspiReference self{_connection.baseService(), pathOf(root)};
  const auto welcome = _connection.call(atspi::methodCall(
      registry, pathOf(root), "org.a11y.atspi.Socket", "Embed", {QVariant::fromValue(self)}));
  if (welcome.type() != QDBusMessage::ReplyMessage)
    throw std::runtime_error(welcome.errorMessage().toStdString());
}

FakeAtspiApplication::~FakeAtspiApplication() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        _connection.unregisterObject(pathPrefix.chopped(1), QDBusConnection::UnregisterTree);
        moveToThread(nullptr);
      },
      Qt::BlockingQueuedConnection);
  _thread.quit();
  _thread.wait();
  QDBusConnection::disconnectFromBus(_connection.name());
}

int FakeAtspiApplication::add(int parent, uint role, const QString& keyBinding) {
  const std::lock_guard lock(_mutex);
  const int object = static_cast<int>(_objects.size());
  constexpr int sensitive = 24, showing = 25;
  Object& added = _objects[object];
  added.role = role;
  added.states = {sensitive, showing};
  added.keyBinding = keyBinding;
  added.parent = parent;
  _objects[parent].children.push_back(object);
  return object;
}

int FakeAtspiApplication::addText(int parent, uint role, const QString& text) {
  const int object = add(parent, role);
  constexpr int editable = 7, focused = 12;
  change(object, [&](Object& added) {
    added.states.unite({editable, focused});
    added.isText = true;
    added.text = text;
  });
  return object;
}

QString FakeAtspiApplication::textOf(int object) {
  const std::lock_guard lock(_mutex);
  return _objects.at(object).text;
}

void FakeAtspiApplication::change(int object, const std::function<void(Object&)>& change) {
  const std::lock_guard lock(_mutex);
  change(_objects.at(object));
}

void FakeAtspiApplication::setState(int object, int state, bool isOn) {
  change(object, [&](Object& changed) {
    if (isOn)
      changed.states.insert(state);
    else
      changed.states.remove(state);
  });
}

void FakeAtspiApplication::sendWindowEvent(int window, const QString& event) {
  _connection.send(
      QDBusMessage::createSignal(pathOf(window), "org.a11y.atspi.Event.Window", event));
}

std::map<QString, int> FakeAtspiApplication::takeCalls() {
  const std::lock_guard lock(_mutex);
  return std::exchange(_calls, {});
}

bool FakeAtspiApplication::handleMessage(const QDBusMessage& message,
                                         const QDBusConnection& connection) {
  QThread::usleep(std::chrono::microseconds(_delay.load()).count());
  const std::lock_guard lock(_mutex);
  ++_calls[message.member()];
  if (_isSilent) return true;
  const bool isUnanswered = message.member() == "AddSelection";
  const auto object = _objects.find(message.path().mid(pathPrefix.size()).toInt());
  const QVariantList answers = object == _objects.end() ? QVariantList()
                               : object->second.isText && message.interface().contains("Text")
                                   ? answerAsText(message, object->second)
                                   : answer(message, object->second);
  if (isUnanswered) return true;
  connection.send(answers.isEmpty()
                      ? message.createErrorReply(QDBusError::UnknownMethod, message.member())
                      : message.createReply(answers));
  return true;
}

QVariantList FakeAtspiApplication::answer(const QDBusMessage& message, const Object& object) {
  const QString method = message.member();
  const QString own = _connection.baseService();
  if (method == "GetChildren") {
    QList<AtspiReference> children;
    for (const int child : object.children) children.push_back({own, pathOf(child)});
    return {QVariant::fromValue(children)};
  }
  if (method == "GetRole") return {object.role};
  if (method == "GetState") {
    QList<uint> words{0, 0};
    for (const int state : object.states) words[state / 32] |= 1U << (state % 32);
    return {QVariant::fromValue(words)};
  }
  if (method == "GetKeyBinding") return {object.keyBinding};
  if (method == "DoAction") {
    if (object.onAction) object.onAction();
    return {true};
  }
  if (method == "GetInterfaces") {
    QStringList interfaces;
    if (object.isText) interfaces << "org.a11y.atspi.Text";
    if (object.isText && object.isEditable) interfaces << "org.a11y.atspi.EditableText";
    return {interfaces};
  }
  if (method == "Get" && message.arguments().value(1) == "ToolkitName")
    return {QVariant::fromValue(QDBusVariant(_toolkit))};
  if (method == "GetName") return {object.actionName};
  if (method == "Get" && message.arguments().value(1) == "NActions")
    return {QVariant::fromValue(QDBusVariant(object.actionName.isEmpty() ? 0 : 1))};
  if (method == "Get" && message.arguments().value(1) == "Name")
    return {QVariant::fromValue(QDBusVariant(object.name))};
  if (method == "Get" && message.arguments().value(1) == "CharacterCount")
    return {QVariant::fromValue(QDBusVariant(static_cast<int>(object.text.size())))};
  if (method == "Get" && message.arguments().value(1) == "Parent")
    return {QVariant::fromValue(
        QDBusVariant(QVariant::fromValue(AtspiReference{own, pathOf(object.parent)})))};
  return {};
}

QVariantList FakeAtspiApplication::answerAsText(const QDBusMessage& message, Object& object) {
  const QString method = message.member();
  const int first = message.arguments().value(0).toInt();
  const int second = message.arguments().value(1).toInt();
  const int begin = object.selectionStart, end = object.selectionEnd;
  if (method == "GetNSelections") return {begin < end ? 1 : 0};
  if (method == "GetSelection") return {begin, end};
  if (method == "GetText") return {object.text.mid(first, second - first)};
  if (method == "AddSelection") {
    object.selectionStart = first;
    object.selectionEnd = second;
  } else if (method == "CopyText" && object.onCopy) {
    object.onCopy(object.text.mid(first, second - first));
  } else if (method == "DeleteText") {
    object.text.remove(first, second - first);
    object.selectionStart = object.selectionEnd = first;
  } else if (method == "InsertText") {
    const QString given = message.arguments().value(1).toString();
    const QString taken = object.filter ? object.filter(given) : given;
    object.text.insert(first, taken);
    return {!object.admitsFiltering || taken == given};
  }
  return {true};
}

}  // namespace qf

Q_DECLARE_METATYPE(qf::AtspiReference)
