// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

namespace qf {

class AtspiRequest;
class Pasteboard;

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

/// What became of a press.
struct AtspiPress {
  bool isTaken;
  /// Ends a sentence that begins with "because"; empty where the press did what it is for. Of a
  /// Copy that was taken and brought nothing it says so.
  std::string whyInVain = {};
};

/// Why a command with that key cannot be carried out where it is disabled.
std::string whyDisabled(const std::optional<AtspiKeyBinding>& key);

/// Waits at most 1 s for the command to become enabled, runs it, and then waits until the
/// pasteboard changed, at most 250 ms, unless all was done at once. Not taken when it stayed
/// disabled, or the application did not answer or refused. Main thread.
///
/// Copy is given 1 s after it was run: whoever presses it takes no change for an empty selection,
/// and goes on to copy the whole text, which on a busy machine would replace the document. Where it
/// brings none, Paste is not pressed any more on the same road: it would put an old clipboard in
/// the place of the text.
AtspiPress pressCommand(AtspiRequest& application, AtspiCommand& command,
                        const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard);

}  // namespace qf
