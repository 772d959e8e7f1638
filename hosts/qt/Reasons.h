// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace qf {

/// A reason that a service or a cleaner gives, in the person's language where it is a known one;
/// as it is otherwise. Each line is a reason of its own.
QString reasonText(const QString& english);

}  // namespace qf
