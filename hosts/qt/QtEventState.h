// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/EventState.h"

namespace qf {

class AddedModifiers;

/// Asks the window system itself, so that keys pressed while no window of ours had the input count,
/// and adds those that are held by other means.
class QtEventState final : public EventState {
 public:
  /// `added` outlives the object.
  explicit QtEventState(const AddedModifiers& added) : _added(added) {}

  std::uint64_t modifierFlags() const override;
  Point mouseLocation() const override;

 private:
  const AddedModifiers& _added;
};

}  // namespace qf
