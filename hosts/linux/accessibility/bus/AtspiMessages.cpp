// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiMessages.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace qf::atspi {

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString action = QStringLiteral("org.a11y.atspi.Action");
const QString plainText = QStringLiteral("org.a11y.atspi.Text");
const QString editableText = QStringLiteral("org.a11y.atspi.EditableText");

QDBusMessage call(const AtspiReference& object, const QString& interface, const QString& method,
                  const QVariantList& arguments = {}) {
  return methodCall(object.service, object.path, interface, method, arguments);
}

QDBusMessage getProperty(const AtspiReference& object, const QString& name,
                         const QString& interface = accessible) {
  return call(object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
              {interface, name});
}

AtspiReference readReference(const QDBusArgument& argument) {
  AtspiReference reference;
  QDBusObjectPath path;
  argument.beginStructure();
  argument >> reference.service >> path;
  argument.endStructure();
  reference.path = path.path();
  return reference;
}

QVariant propertyValue(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("v"))
    return {};
  return answer.arguments().constFirst().value<QDBusVariant>().variant();
}

template <class T>
T plain(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage) return {};
  const QVariant value = answer.arguments().value(0);
  return value.metaType() == QMetaType::fromType<T>() ? value.value<T>() : T();
}

}  // namespace

QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& method, const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
  message.setArguments(arguments);
  return message;
}

QDBusMessage getChildren(const AtspiReference& object) {
  return call(object, accessible, QStringLiteral("GetChildren"));
}

QDBusMessage getRole(const AtspiReference& object) {
  return call(object, accessible, QStringLiteral("GetRole"));
}

QDBusMessage getState(const AtspiReference& object) {
  return call(object, accessible, QStringLiteral("GetState"));
}

QDBusMessage getName(const AtspiReference& object) {
  return getProperty(object, QStringLiteral("Name"));
}

QDBusMessage getParent(const AtspiReference& object) {
  return getProperty(object, QStringLiteral("Parent"));
}

QDBusMessage getText(const AtspiReference& object, AtspiRange range) {
  return call(object, plainText, QStringLiteral("GetText"), {range.start, range.end});
}

QDBusMessage setText(const AtspiReference& object, const QString& text) {
  return call(object, editableText, QStringLiteral("SetTextContents"), {text});
}

QDBusMessage grabFocus(const AtspiReference& object) {
  return call(object, QStringLiteral("org.a11y.atspi.Component"), QStringLiteral("GrabFocus"));
}

QDBusMessage getKeyBinding(const AtspiReference& object) {
  return call(object, action, QStringLiteral("GetKeyBinding"), {0});
}

QDBusMessage getInterfaces(const AtspiReference& object) {
  return call(object, accessible, QStringLiteral("GetInterfaces"));
}

QDBusMessage getToolkitName(const AtspiReference& root) {
  return getProperty(root, QStringLiteral("ToolkitName"),
                     QStringLiteral("org.a11y.atspi.Application"));
}

QDBusMessage getActionCount(const AtspiReference& object) {
  return getProperty(object, QStringLiteral("NActions"), action);
}

QDBusMessage getActionName(const AtspiReference& object, int index) {
  return call(object, action, QStringLiteral("GetName"), {index});
}

QDBusMessage doAction(const AtspiReference& object, int index) {
  return call(object, action, QStringLiteral("DoAction"), {index});
}

QDBusMessage clearSelection(const AtspiReference& object) {
  return call(object, QStringLiteral("org.a11y.atspi.Selection"), QStringLiteral("ClearSelection"));
}

QDBusMessage pressEscape() {
  constexpr int escape = 0xff1b;               // X11's keysym
  constexpr uint pressAndReleaseOfKeysym = 3;  // of AtspiKeySynthType
  return methodCall(QStringLiteral("org.a11y.atspi.Registry"),
                    QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller"),
                    QStringLiteral("org.a11y.atspi.DeviceEventController"),
                    QStringLiteral("GenerateKeyboardEvent"),
                    {escape, QString(), QVariant::fromValue(pressAndReleaseOfKeysym)});
}

QDBusMessage getCharacterCount(const AtspiReference& object) {
  return getProperty(object, QStringLiteral("CharacterCount"), plainText);
}

QDBusMessage getCaretOffset(const AtspiReference& object) {
  return getProperty(object, QStringLiteral("CaretOffset"), plainText);
}

QDBusMessage getSelectionCount(const AtspiReference& object) {
  return call(object, plainText, QStringLiteral("GetNSelections"));
}

QDBusMessage getSelection(const AtspiReference& object) {
  return call(object, plainText, QStringLiteral("GetSelection"), {0});
}

QDBusMessage addSelection(const AtspiReference& object, AtspiRange range) {
  return call(object, plainText, QStringLiteral("AddSelection"), {range.start, range.end});
}

QDBusMessage removeSelection(const AtspiReference& object) {
  return call(object, plainText, QStringLiteral("RemoveSelection"), {0});
}

QDBusMessage copyText(const AtspiReference& object, AtspiRange range) {
  return call(object, editableText, QStringLiteral("CopyText"), {range.start, range.end});
}

QDBusMessage deleteText(const AtspiReference& object, AtspiRange range) {
  return call(object, editableText, QStringLiteral("DeleteText"), {range.start, range.end});
}

QDBusMessage insertText(const AtspiReference& object, int position, const QString& text,
                        int length) {
  return call(object, editableText, QStringLiteral("InsertText"), {position, text, length});
}

std::vector<AtspiReference> references(const QDBusMessage& answer) {
  std::vector<AtspiReference> result;
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("a(so)"))
    return result;
  const auto argument = answer.arguments().constFirst().value<QDBusArgument>();
  argument.beginArray();
  while (!argument.atEnd()) {
    AtspiReference reference = readReference(argument);
    if (!reference.isNull()) result.push_back(std::move(reference));
  }
  argument.endArray();
  return result;
}

AtspiReference referenceProperty(const QDBusMessage& answer) {
  const QVariant value = propertyValue(answer);
  if (value.metaType() != QMetaType::fromType<QDBusArgument>()) return {};
  const auto argument = value.value<QDBusArgument>();
  return argument.currentSignature() == QLatin1String("(so)") ? readReference(argument)
                                                              : AtspiReference();
}

QString textProperty(const QDBusMessage& answer) { return propertyValue(answer).toString(); }

QString text(const QDBusMessage& answer) { return plain<QString>(answer); }

uint number(const QDBusMessage& answer) { return plain<uint>(answer); }

int signedNumber(const QDBusMessage& answer) { return plain<int>(answer); }

int numberProperty(const QDBusMessage& answer) { return propertyValue(answer).toInt(); }

QStringList texts(const QDBusMessage& answer) { return plain<QStringList>(answer); }

AtspiRange range(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("ii"))
    return {};
  return {answer.arguments().at(0).toInt(), answer.arguments().at(1).toInt()};
}

bool truth(const QDBusMessage& answer) { return plain<bool>(answer); }

AtspiStates states(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("au"))
    return {};
  const auto words = qdbus_cast<QList<uint>>(answer.arguments().constFirst());
  AtspiStates states;
  if (!words.isEmpty()) states.bits = words[0];
  if (words.size() > 1) states.bits |= std::uint64_t{words[1]} << 32;
  return states;
}

}  // namespace qf::atspi
