// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHashFunctions>
#include <QString>

namespace qf {

/// Names one accessible object: the bus name of its application's connection, and its path there.
struct AtspiReference {
  QString service;
  QString path;

  bool isNull() const {
    return service.isEmpty() || path.isEmpty() || path == QLatin1String("/org/a11y/atspi/null");
  }
  bool operator==(const AtspiReference&) const = default;
  friend std::size_t qHash(const AtspiReference& reference, std::size_t seed = 0) {
    return qHashMulti(seed, reference.service, reference.path);
  }
};

}  // namespace qf
