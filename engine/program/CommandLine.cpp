// SPDX-License-Identifier: Apache-2.0
#include "engine/program/CommandLine.h"

namespace qf {

const std::string_view commandLineHelp =
    "quenfold cleans text: what is on the clipboard, when asked by the tray menu of "
    "quenfold-menu,\n"
    "files, and whatever a script sends through it.\n"
    "\n"
    "  quenfold                        run, with a window\n"
    "  quenfold --agent                run in the background\n"
    "  quenfold --list                 the cleaners, one a line: token, tab, name\n"
    "  quenfold --clean TOKEN          standard input to standard output, cleaned\n"
    "  quenfold --clean TOKEN FILE...  the files, cleaned in place\n"
    "  quenfold --clipboard TOKEN      the clipboard's text, cleaned by the engine that runs\n"
    "  quenfold --version, --help\n"
    "\n"
    "Your own cleaners and groups are in ~/.config/quenfold/cleaners.json (XDG_CONFIG_HOME moves "
    "it).\n"
    "A text that the cleaner cannot take comes out as it was, with the reason on standard error\n"
    "and exit code 1.\n";

Result<CommandLine> parseCommandLine(std::span<char* const> arguments) {
  if (arguments.empty()) return CommandLine{};
  const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
  const std::string_view mode = arguments.front();
  if (mode == "--clean") {
    if (rest.empty()) return Error{"--clean needs the token of a cleaner; --list shows them"};
    return CommandLine{CommandLine::Mode::clean, rest.front(), {rest.begin() + 1, rest.end()}};
  }
  if (mode == "--clipboard") {
    if (rest.size() != 1)
      return Error{"--clipboard needs the token of one cleaner; --list shows them"};
    return CommandLine{CommandLine::Mode::cleanClipboard, rest.front(), {}};
  }
  if (!rest.empty()) return Error{"there is nothing to do with \"" + rest.front() + '"'};
  if (mode == "--agent") return CommandLine{CommandLine::Mode::agent, {}, {}};
  if (mode == "--list") return CommandLine{CommandLine::Mode::list, {}, {}};
  if (mode == "--version") return CommandLine{CommandLine::Mode::version, {}, {}};
  if (mode == "--help" || mode == "-h") return CommandLine{CommandLine::Mode::help, {}, {}};
  return Error{"there is no option \"" + std::string(mode) + '"'};
}

}  // namespace qf
