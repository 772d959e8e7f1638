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
  std::vector<std::string> words = {};  ///< names of cleaners, and files behind them
  std::vector<std::string> files = {};  ///< those behind "--"
  std::string encoding = {};            ///< of texts without a byte-order mark; empty for UTF-8
  bool inPlace = false;
  bool asJSON = false;
  unsigned jobs = 0;  ///< how many files at a time; 0 for as many as there are processors
};

/// Fails, in words for the person, for arguments that mean nothing.
Result<CommandLine> parseCommandLine(std::span<char* const> arguments);

extern const std::string_view commandLineHelp;

}  // namespace qf
