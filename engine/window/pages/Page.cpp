// SPDX-License-Identifier: Apache-2.0
#include "engine/window/pages/Page.h"

#include "hosts/qt/QtText.h"

namespace qf {

void Page::report(const std::optional<Error>& error) {
  emit problem(error ? toQString(error->localizedDescription) : QString());
}

}  // namespace qf
