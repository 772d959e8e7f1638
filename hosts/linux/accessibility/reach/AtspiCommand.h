// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

namespace qf {

class AtspiRequest;

inline const AtspiKeyBinding selectAllKey{"A", 0};
inline const AtspiKeyBinding copyKey{"C", 0};
inline const AtspiKeyBinding pasteKey{"V", 0};

/// What stands behind an item of a menu bar: an item that the application has, or another way to
/// the same end. Main thread.
class AtspiCommand {
 public:
  virtual ~AtspiCommand() = default;
  /// Asks the application anew each time.
  virtual bool isEnabled(AtspiRequest& application) = 0;
  struct Outcome {
    enum Kind {
      refused,
      taken,  ///< the application may act only afterwards
      done
    } kind;
    std::string whyRefused = {};  ///< ends a sentence that begins with "because"
  };
  virtual Outcome run(AtspiRequest& application) = 0;
};

/// Why a command with that key cannot be carried out where it is disabled.
std::string whyDisabled(const std::optional<AtspiKeyBinding>& key);

/// Waits at most 1 s for the command to become enabled. False when it stayed disabled or the
/// application did not answer. Main thread.
bool waitUntilEnabled(AtspiRequest& request, AtspiCommand& command);

/// What a command brings about, and how long that may take.
struct AtspiEffect {
  std::function<bool()> isSeen;
  std::chrono::milliseconds limit;
};

/// What became of a command.
struct AtspiResult {
  bool isTaken = false;
  bool isSeen = false;           ///< whether the effect was seen in time
  std::string whyNotTaken = {};  ///< ends a sentence that begins with "because"
};

/// Runs the command, and waits for its effect unless all was done at once. Main thread.
AtspiResult runCommand(AtspiRequest& request, AtspiCommand& command, const AtspiEffect& effect);

}  // namespace qf
