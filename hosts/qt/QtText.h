// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <string_view>

namespace qf {

/// UTF-8 as Qt holds it.
inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace qf
