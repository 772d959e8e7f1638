// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusMessage>
#include <QString>
#include <vector>

#include "hosts/linux/accessibility/AtspiReference.h"
#include "hosts/linux/accessibility/AtspiStates.h"

namespace qf::atspi {

// The questions that are asked of accessible objects, by the interfaces of at-spi2-core 2.46
// (xml/*.xml there), and what their answers say. An answer that is an error or of another shape
// reads as empty. Any thread.

QDBusMessage getChildren(const AtspiReference& object);
QDBusMessage getRole(const AtspiReference& object);
QDBusMessage getState(const AtspiReference& object);
QDBusMessage getName(const AtspiReference& object);
QDBusMessage getParent(const AtspiReference& object);
QDBusMessage getText(const AtspiReference& object);
QDBusMessage setText(const AtspiReference& object, const QString& text);
QDBusMessage grabFocus(const AtspiReference& object);
/// Of the object's first action.
QDBusMessage getKeyBinding(const AtspiReference& object);
QDBusMessage doAction(const AtspiReference& object);

QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& method, const QVariantList& arguments = {});

/// Null ones are left out.
std::vector<AtspiReference> references(const QDBusMessage& answer);
/// The value of a property.
AtspiReference referenceProperty(const QDBusMessage& answer);
QString textProperty(const QDBusMessage& answer);
QString text(const QDBusMessage& answer);
uint number(const QDBusMessage& answer);
bool truth(const QDBusMessage& answer);
AtspiStates states(const QDBusMessage& answer);

}  // namespace qf::atspi
