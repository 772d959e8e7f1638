// SPDX-License-Identifier: Apache-2.0
#include "engine/window/Page.h"

namespace qf {

void Page::report(const std::optional<Error>& error) {
  emit problem(error ? QString::fromStdString(error->localizedDescription) : QString());
}

}  // namespace qf
