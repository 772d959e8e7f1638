// SPDX-License-Identifier: Apache-2.0
#include "engine/program/CommandLine.h"

#include <charconv>
#include <optional>

namespace qf {

const std::string_view commandLineHelp =
    "quenfold cleans text: what is on the clipboard, when asked by the tray menu of "
    "quenfold-menu,\n"
    "files, and whatever a script sends through it.\n"
    "\n"
    "  quenfold                        run, with a window\n"
    "  quenfold --agent                run in the background\n"
    "  quenfold --list [--json]        the cleaners, one a line: token, tab, name\n"
    "  quenfold --clean NAME...        standard input to standard output, cleaned\n"
    "  quenfold --clean NAME... FILE...             the files to standard output\n"
    "  quenfold --clean NAME... --in-place FILE...  the files, replaced\n"
    "  quenfold --clipboard NAME       the clipboard's text, cleaned by the engine that runs\n"
    "  quenfold --version, --help\n"
    "\n"
    "NAME is a token or a name, with or without #, in capitals or small letters; several are\n"
    "carried out one after the other. Files begin behind the last of them, or behind --.\n"
    "\n"
    "  --encoding NAME  the encoding of texts without a byte-order mark; UTF-8 without it\n"
    "  --in-place       replace the files\n"
    "  --jobs NUMBER    how many files at a time; as many as there are processors without it\n"
    "\n"
    "Your own cleaners and groups are in ~/.config/quenfold/cleaners.json (XDG_CONFIG_HOME moves "
    "it).\n"
    "A text that the cleaner cannot take comes out as it was, with the reason on standard error\n"
    "and exit code 1.\n";

namespace {

std::optional<unsigned> number(std::string_view digits) {
  unsigned value = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const bool isNumber = error == std::errc() && stop == digits.data() + digits.size();
  return isNumber && value > 0 ? std::optional(value) : std::nullopt;
}

/// What may stand behind "--clean".
Result<CommandLine> parseClean(std::span<const std::string> arguments) {
  CommandLine result{.mode = CommandLine::Mode::clean};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    const bool hasValue = argument == "--encoding" || argument == "--jobs";
    if (hasValue && i + 1 == arguments.size()) return Error{argument + " needs a value"};
    if (argument == "--") {
      result.files.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1, arguments.end());
      break;
    }
    if (argument == "--encoding") {
      result.encoding = arguments[++i];
    } else if (argument == "--jobs") {
      const auto jobs = number(arguments[++i]);
      if (!jobs) return Error{"--jobs needs a number above 0"};
      result.jobs = *jobs;
    } else if (argument == "--in-place") {
      result.inPlace = true;
    } else if (argument.starts_with("--") && argument != "--clean") {
      return Error{"there is no option \"" + argument + '"'};
    } else if (argument != "--clean") {
      result.words.push_back(argument);
    }
  }
  if (result.words.empty()) return Error{"--clean needs the name of a cleaner; --list shows them"};
  return result;
}

}  // namespace

Result<CommandLine> parseCommandLine(std::span<char* const> arguments) {
  using Mode = CommandLine::Mode;
  if (arguments.empty()) return CommandLine{};
  const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
  const std::string_view mode = arguments.front();
  if (mode == "--clean") return parseClean(rest);
  if (mode == "--clipboard") {
    if (rest.size() != 1)
      return Error{"--clipboard needs the name of one cleaner; --list shows them"};
    return CommandLine{.mode = Mode::cleanClipboard, .words = rest};
  }
  const bool asJSON = mode == "--list" && rest.size() == 1 && rest.front() == "--json";
  if (!rest.empty() && !asJSON) return Error{"there is nothing to do with \"" + rest.front() + '"'};
  if (mode == "--agent") return CommandLine{.mode = Mode::agent};
  if (mode == "--list") return CommandLine{.mode = Mode::list, .asJSON = asJSON};
  if (mode == "--version") return CommandLine{.mode = Mode::version};
  if (mode == "--help" || mode == "-h") return CommandLine{.mode = Mode::help};
  return Error{"there is no option \"" + std::string(mode) + '"'};
}

}  // namespace qf
