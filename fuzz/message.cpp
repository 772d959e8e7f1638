// SPDX-License-Identifier: Apache-2.0
// A command as it comes from the bus, in both forms, to the client and to the engine; and as an
// answer.
#include "engine/program/EngineWindow.h"
#include "engine/program/QFEngine.h"
#include "fuzz/Checks.h"
#include "kit/QFKClientRemote.h"
#include "tests/support/FakeHost.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

constexpr FourCharCode commandClass = fourCharCode("Fold");

struct NoWindow : EngineWindow {
  void show() override {}
  void showPreferences() override {}
};

// The engine would open the files that a fuzzer's command names.
bool namesFiles(const Data& message) {
  const std::string_view text(reinterpret_cast<const char*>(message.data()), message.size());
  const auto archive = unarchiveKeyed(message);
  return text.find("cleanFiles") != text.npos ||
         (archive && archive->description().find("cleanFiles") != std::string::npos);
}

void deliver(FakeHost& host, const Data& message) {
  for (const FourCharCode form : {fourCharCode("qfS2"), fourCharCode("qfSv")}) {
    host.appleEvents.receive(commandClass, form, message);
  }
}

}  // namespace
}  // namespace qf

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  const Data message(bytes, bytes + size);
  const LogCapture log;

  FakeHost agent;
  QFKClientRemote client({agent.appleEvents, agent.bundle, agent.distributedNotificationCenter,
                          agent.fileManager, agent.workspace});
  client.setReceivesCommands(true);
  client.setupConnection();
  agent.appleEvents.answer = message;
  deliver(agent, message);
  client.sendRemoteCommand("listData");

  if (namesFiles(message)) return 0;
  FakeHost host;
  FakePasteboards pasteboards;
  NoWindow window;
  QFEngine engine({host.appleEvents,
                   host.bundle,
                   host.distributedNotificationCenter,
                   host.fileManager,
                   pasteboards,
                   host.workspace,
                   window,
                   {}},
                  [] {});
  engine.start();
  deliver(host, message);
  return 0;
}
