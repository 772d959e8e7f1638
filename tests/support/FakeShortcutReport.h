// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include "host/ShortcutReport.h"

namespace qf {

class FakeShortcutReport : public ShortcutReport {
 public:
  void setShortcutSource(Source newSource) override { source = std::move(newSource); }

  Source source;
};

}  // namespace qf
