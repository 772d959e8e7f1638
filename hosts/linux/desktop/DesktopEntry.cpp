// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/DesktopEntry.h"

#include <fstream>
#include <map>
#include <utility>

#include "hosts/linux/files/UserLanguages.h"

namespace qf {
namespace {

constexpr std::size_t largestFile = std::size_t{1} << 20;

using Fields = std::map<std::string, std::string, std::less<>>;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    switch (text[++i]) {
      case 's':
        result += ' ';
        break;
      case 'n':
        result += '\n';
        break;
      case 't':
        result += '\t';
        break;
      case 'r':
        result += '\r';
        break;
      case '\\':
        result += '\\';
        break;
      default:
        result += {'\\', text[i]};
    }
  }
  return result;
}

/// The group every entry begins with; the groups of its further actions are left out.
Fields mainGroup(std::string_view text) {
  Fields fields;
  bool isInGroup = false;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      if (isInGroup) break;
      isInGroup = line == "[Desktop Entry]";
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!isInGroup || equals == std::string_view::npos) continue;
    fields.emplace(trimmed(line.substr(0, equals)), unescaped(trimmed(line.substr(equals + 1))));
  }
  return fields;
}

std::string field(const Fields& fields, std::string_view key) {
  const auto found = fields.find(key);
  return found == fields.end() ? std::string() : found->second;
}

/// The best of the translated values.
std::string localizedField(const Fields& fields, const std::string& key) {
  for (const std::string& language : userLanguages()) {
    const auto found = fields.find(std::string(key).append("[").append(language).append("]"));
    if (found != fields.end()) return found->second;
  }
  return field(fields, key);
}

/// Cuts a command line into its arguments, as the standard's "The Exec key" has it.
class ExecLine {
 public:
  explicit ExecLine(std::string_view line) : _line(line) {}

  std::vector<std::string> arguments() {
    while (_position < _line.size()) {
      const char letter = _line[_position++];
      if (letter == ' ' || letter == '\t')
        endArgument();
      else if (letter == '"')
        _isMalformed |= !readQuoted();
      else
        append(letter);
    }
    endArgument();
    return _isMalformed ? std::vector<std::string>() : std::move(_arguments);
  }

 private:
  bool readQuoted() {
    _hasArgument = true;
    while (_position < _line.size()) {
      char letter = _line[_position++];
      if (letter == '"') return true;
      const bool escapes = letter == '\\' && _position < _line.size() &&
                           std::string_view("\"`$\\").find(_line[_position]) != std::string::npos;
      if (escapes)
        _argument += _line[_position++];
      else
        append(letter);
    }
    return false;
  }

  /// A field code stands for a file, a name or an icon, of which there is none here.
  void append(char letter) {
    if (letter == '%' && _position < _line.size()) {
      if (_line[_position++] != '%') return;
    }
    _argument += letter;
    _hasArgument = true;
  }

  void endArgument() {
    if (_hasArgument) _arguments.push_back(std::exchange(_argument, {}));
    _hasArgument = false;
  }

  std::string_view _line;
  std::size_t _position = 0;
  std::string _argument;
  bool _hasArgument = false;
  bool _isMalformed = false;
  std::vector<std::string> _arguments;
};

}  // namespace

std::optional<DesktopEntry> DesktopEntry::read(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::string text(largestFile + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (text.size() > largestFile) return std::nullopt;
  return parse(text, path);
}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text,
                                                const std::filesystem::path& path) {
  const Fields fields = mainGroup(text);
  const bool isDeleted = field(fields, "Hidden") == "true";
  if (!isDeleted && field(fields, "Type") != "Application") return std::nullopt;
  return DesktopEntry{path,
                      path.stem().string(),
                      localizedField(fields, "Name"),
                      field(fields, "StartupWMClass"),
                      field(fields, "Exec"),
                      field(fields, "TryExec"),
                      field(fields, "Path"),
                      isDeleted};
}

std::vector<std::string> DesktopEntry::commandLine() const { return ExecLine(exec).arguments(); }

}  // namespace qf
