// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Result.h"

namespace qf {

/// What a person asked of the program.
struct CommandLine {
  enum class Mode { window, agent, help, version, list, clean, cleanClipboard };

  Mode mode = Mode::window;
  std::string token;
  std::vector<std::string> files;
};

/// Fails, in words for the person, for arguments that mean nothing.
Result<CommandLine> parseCommandLine(std::span<char* const> arguments);

extern const std::string_view commandLineHelp;

}  // namespace qf
