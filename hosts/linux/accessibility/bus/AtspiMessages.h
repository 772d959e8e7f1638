// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusMessage>
#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/bus/AtspiStates.h"

namespace qf {

/// A part of a text, from one offset up to another.
struct AtspiRange {
  int start = 0;
  int end = 0;
  bool isEmpty() const { return start >= end; }
  bool operator==(const AtspiRange&) const = default;
};

}  // namespace qf

namespace qf::atspi {

// The questions that are asked of accessible objects, by the interfaces of at-spi2-core 2.46
// (xml/*.xml there), and what their answers say. An answer that is an error or of another shape
// reads as empty. Any thread.

QDBusMessage getChildren(const AtspiReference& object);
QDBusMessage getRole(const AtspiReference& object);
QDBusMessage getState(const AtspiReference& object);
QDBusMessage getName(const AtspiReference& object);
QDBusMessage getParent(const AtspiReference& object);
QDBusMessage getText(const AtspiReference& object, AtspiRange range = {0, -1});
QDBusMessage setText(const AtspiReference& object, const QString& text);
QDBusMessage grabFocus(const AtspiReference& object);
QDBusMessage getInterfaces(const AtspiReference& object);
/// Of the root object of an application.
QDBusMessage getToolkitName(const AtspiReference& root);
/// Of the object's first action.
QDBusMessage getKeyBinding(const AtspiReference& object);
QDBusMessage getActionCount(const AtspiReference& object);
QDBusMessage getActionName(const AtspiReference& object, int index);
QDBusMessage doAction(const AtspiReference& object, int index = 0);
/// Of a menu bar: closes the menu that is open.
QDBusMessage clearSelection(const AtspiReference& object);
/// A key stroke for whoever has the keyboard.
QDBusMessage pressEscape();

// Of a text; offsets are in whatever the toolkit counts, from 0.
QDBusMessage getCharacterCount(const AtspiReference& object);
QDBusMessage getCaretOffset(const AtspiReference& object);
QDBusMessage getSelectionCount(const AtspiReference& object);
QDBusMessage getSelection(const AtspiReference& object);
QDBusMessage addSelection(const AtspiReference& object, AtspiRange range);
QDBusMessage removeSelection(const AtspiReference& object);
QDBusMessage copyText(const AtspiReference& object, AtspiRange range);
QDBusMessage deleteText(const AtspiReference& object, AtspiRange range);
/// `length` is the text's, in what the toolkit counts here.
QDBusMessage insertText(const AtspiReference& object, int position, const QString& text,
                        int length);

QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& method, const QVariantList& arguments = {});

/// Null ones are left out.
std::vector<AtspiReference> references(const QDBusMessage& answer);
/// The value of a property.
AtspiReference referenceProperty(const QDBusMessage& answer);
QString textProperty(const QDBusMessage& answer);
QString text(const QDBusMessage& answer);
uint number(const QDBusMessage& answer);
int signedNumber(const QDBusMessage& answer);
int numberProperty(const QDBusMessage& answer);
QStringList texts(const QDBusMessage& answer);
AtspiRange range(const QDBusMessage& answer);
bool truth(const QDBusMessage& answer);
AtspiStates states(const QDBusMessage& answer);

}  // namespace qf::atspi
