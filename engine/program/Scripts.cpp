// SPDX-License-Identifier: Apache-2.0
#include "engine/program/Scripts.h"

#include <algorithm>
#include <atomic>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

#include "engine/program/CleanerChain.h"
#include "engine/program/Cleaning.h"
#include "engine/program/Progress.h"
#include "engine/program/QFFileCleaner.h"
#include "engine/program/TextEncoding.h"
#include "foundation/Log.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 20;

std::string textIn(const Value& value, std::string_view key) {
  const auto text = value.dictionary() ? value.dictionary()->string(key) : std::nullopt;
  return std::string(text.value_or(""));
}

std::vector<std::string> groupsOf(std::string_view token, const Dictionary& listData) {
  std::vector<std::string> names;
  const Array* groups = listData.array(listKey::master);
  for (const Value& group : groups ? *groups : Array()) {
    const Array* items =
        group.dictionary() ? group.dictionary()->array(listKey::richList) : nullptr;
    const bool holds = items && std::any_of(items->begin(), items->end(), [&](const Value& item) {
                         return textIn(item, listKey::token) == token;
                       });
    if (holds) names.push_back(textIn(group, listKey::name));
  }
  return names;
}

/// Appends the next part of the input; false at its end.
bool readMore(std::istream& in, std::string& text) {
  const std::size_t before = text.size();
  text.resize(before + pieceSize);
  in.read(text.data() + before, pieceSize);
  text.resize(before + static_cast<std::size_t>(in.gcount()));
  return text.size() > before;
}

int left(const Error& error) {
  log(leftAsItWas(error.localizedDescription));
  return 1;
}

/// What is behind the last line end waits for the rest of its line.
int cleanByLine(const CleanerChain& chain, std::istream& in, std::ostream& out) {
  Progress progress("MB", 0);
  std::string text;
  for (bool more = true; more;) {
    const std::size_t searched = text.size();
    more = readMore(in, text);
    const std::size_t end = text.rfind('\n');
    const bool hasLine = end != std::string::npos && end >= searched;
    if (more && !hasLine) continue;
    const std::size_t length = more ? end + 1 : text.size();
    const Result<std::string> cleaned = chain.clean(std::string_view(text).substr(0, length));
    if (!cleaned) {
      out << text << in.rdbuf();
      return left(cleaned.error());
    }
    out.write(cleaned->data(), static_cast<std::streamsize>(cleaned->size()));
    text.erase(0, length);
    progress.add(1);
    if (!out) return 1;
  }
  return out.flush() ? 0 : 1;
}

/// The cleaned text of a file or a stream in its own encoding.
Result<Data> cleanedBytes(const CleanerChain& chain, std::span<const std::uint8_t> bytes,
                          std::string_view encoding) {
  const Result<EncodedText> text = decodeText(bytes, encoding);
  if (!text) return text.error();
  const Result<std::string> cleaned = chain.clean(text->text);
  if (!cleaned) return cleaned.error();
  return encodeText(*cleaned, text->encoding);
}

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void write(std::ostream& out, const Data& bytes) {
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

void logLeft(const std::string& path, const Error& error) {
  log("File " + path + " left as it is: " + error.localizedDescription);
}

}  // namespace

int listCleaners(const Dictionary& listData, std::ostream& out) {
  const Dictionary* cleaners = listData.dictionary(listKey::tokenInfo);
  if (!cleaners) return 1;
  for (const auto& [token, info] : *cleaners) {
    const std::string name = textIn(info, listKey::name);
    out << std::string_view(token) << '\t' << (name.empty() ? std::string(token) : name) << '\n';
  }
  return 0;
}

int listCleanersAsJSON(const Dictionary& listData, std::ostream& out) {
  const Dictionary* cleaners = listData.dictionary(listKey::tokenInfo);
  if (!cleaners) return 1;
  auto list = nlohmann::ordered_json::array();
  for (const auto& [token, info] : *cleaners) {
    list.push_back({{"token", std::string(token)},
                    {"name", textIn(info, listKey::name)},
                    {"description", textIn(info, listKey::description)},
                    {"groups", groupsOf(token, listData)}});
  }
  constexpr int indentation = 2;
  out << list.dump(indentation) << '\n';
  return 0;
}

int cleanStream(const CleanerChain& chain, std::string_view encoding, std::istream& in,
                std::ostream& out) {
  if (encoding.empty() && chain.worksByLine()) return cleanByLine(chain, in, out);
  std::string text;
  while (readMore(in, text)) continue;
  if (encoding.empty()) {
    const Result<std::string> cleaned = chain.clean(text);
    out << (cleaned ? *cleaned : text) << std::flush;
    if (!cleaned) return left(cleaned.error());
  } else {
    const Result<Data> cleaned = cleanedBytes(chain, bytesOf(text), encoding);
    cleaned ? write(out, *cleaned) : void(out << text);
    if (!cleaned) return left(cleaned.error());
  }
  return out.flush() ? 0 : 1;
}

int cleanFilesTo(std::ostream& out, const CleanerChain& chain, const FileManager& fileManager,
                 std::string_view encoding, std::span<const std::string> paths) {
  Progress progress("files", paths.size());
  int exitCode = 0;
  for (const std::string& path : paths) {
    const auto contents = QFFileCleaner::contents(fileManager, path);
    const Result<Data> cleaned =
        contents ? cleanedBytes(chain, *contents, encoding) : Result<Data>(contents.error());
    if (cleaned) {
      write(out, *cleaned);
    } else {
      logLeft(path, cleaned.error());
      exitCode = 1;
    }
    progress.add(1);
  }
  return out.flush() ? exitCode : 1;
}

int cleanFilesInPlace(const CleanerChain& chain, const FileManager& fileManager,
                      std::string_view encoding, std::span<const std::string> paths,
                      unsigned jobs) {
  Progress progress("files", paths.size());
  std::atomic<std::size_t> next = 0;
  std::atomic<int> exitCode = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < paths.size(); i = next++) {
      const auto error = QFFileCleaner::clean(
          fileManager, paths[i], [&](std::string_view text) { return chain.clean(text); },
          encoding);
      if (error) {
        logLeft(paths[i], *error);
        exitCode = 1;
      }
      progress.add(1);
    }
  };
  std::vector<std::jthread> others;
  const std::size_t count = std::min<std::size_t>(std::max(jobs, 1U), paths.size());
  for (std::size_t i = 1; i < count; ++i) others.emplace_back(work);
  work();
  others.clear();
  return exitCode;
}

}  // namespace qf
