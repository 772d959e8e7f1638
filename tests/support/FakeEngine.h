// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "foundation/KeyedArchive.h"
#include "foundation/Text.h"
#include "tests/support/FakeAppleEvents.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeWorkspace.h"

namespace qf {

/// An engine that runs, takes commands off the wire and cleans pasteboards by putting their text
/// into capitals.
class FakeEngine {
 public:
  static constexpr std::int32_t process = 99;

  FakeEngine(FakeAppleEvents& appleEvents, FakePasteboards& pasteboards, FakeWorkspace& workspace)
      : _pasteboards(pasteboards) {
    workspace.applications.push_back({"org.quenfold.Quenfold", "Quenfold", process});
    appleEvents.onSend = [this](const AppleEvent& event) { receive(event); };
  }
  FakeEngine(const FakeEngine&) = delete;
  FakeEngine& operator=(const FakeEngine&) = delete;

  std::vector<std::string> commands;  ///< each with its parameters

 private:
  void receive(const AppleEvent& event) {
    const auto message = unarchiveKeyed(event.data);
    if (!message || !message->dictionary()) {
      commands.push_back("no message");
      return;
    }
    const auto text = [&](std::string_view key) {
      return std::string(message->dictionary()->string(key).value_or(""));
    };
    std::string line = text("command");
    if (line == "cleanPasteboard:cleaner:") {
      line += " " + text("param1") + " " + text("param2");
      clean(_pasteboards.pasteboardWithName(text("param1")));
    }
    commands.push_back(std::move(line));
  }

  static void clean(Pasteboard* pasteboard) {
    if (!pasteboard) return;
    if (const auto text = pasteboard->string()) pasteboard->setString(uppercased(*text));
  }

  FakePasteboards& _pasteboards;
};

}  // namespace qf
