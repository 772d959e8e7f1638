// SPDX-License-Identifier: Apache-2.0
// The other side of the bus tests: an application with its own way to handle each event.
//   bus_peer IDENTIFIER POLICY [--user N]
// It says "ready" once it is a running instance. Started with a pipe, it ends with it.
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"

int main(int argc, char** argv) {
  using namespace qf;
  if (argc > 4 && std::strcmp(argv[3], "--user") == 0 &&
      setuid(static_cast<uid_t>(std::atoi(argv[4]))) != 0)
    return 3;
  QCoreApplication application(argc, argv);
  const QDBusConnection bus = QDBusConnection::sessionBus();
  BusApplications applications(bus, argv[1], static_cast<ActivationPolicy>(std::atoi(argv[2])));
  DBusAppleEvents events(applications);
  DBusDistributedNotificationCenter notifications(bus);

  const auto handle = [&](const char(&eventID)[5], AppleEvents::EventHandler handler) {
    events.setEventHandler(fourCharCode("Test"), fourCharCode(eventID), std::move(handler));
  };
  handle("echo", [](const Data& data) { return data; });
  handle("none", [](const Data&) { return std::nullopt; });
  // Says which hints it got, and answers what it did by their letters.
  handle("hint", [&](const Data&) {
    const EventHints& hints = events.servedEvent().hints();
    const std::string got =
        hints.clipboard.value_or("none") +
        (hints.deadline
             ? std::to_string(hints.deadline->time_since_epoch() / std::chrono::microseconds(1))
             : "");
    events.servedEvent().setAnswerHints({AnswerHints::Outcome::cleaned, "new " + got});
    return Data(got.begin(), got.end());
  });
  handle("hang", [](const Data&) {
    std::this_thread::sleep_for(std::chrono::seconds(5));
    return std::nullopt;
  });
  handle("die ", [](const Data&) -> std::optional<Data> { std::_Exit(0); });
  handle("post", [&](const Data& data) {
    for (const std::uint8_t letter : data)
      notifications.post(std::string("test.") + static_cast<char>(letter));
    return data;
  });
  // Sends the data to the test's process as an event before it answers; its status is the answer.
  handle("back", [&](const Data& data) {
    const std::vector<RunningApplication> tests = applications.running("org.quenfold.Tests");
    AppleEvent event{fourCharCode("Test"), fourCharCode("note"), {}, -1, 0, data};
    event.target.processIdentifier = tests.empty() ? 0 : tests.back().processIdentifier;
    Data ignored;
    const AppleEventStatus status = events.sendMessage(event, data.empty() ? 3 : 0, 20, ignored);
    const std::string text = std::to_string(static_cast<int>(status));
    return Data(text.begin(), text.end());
  });

  if (const auto error = applications.registerInstance(BusApplications::Instances::several)) {
    std::fprintf(stderr, "%s\n", error->localizedDescription.c_str());
    return 2;
  }
  std::puts("ready");
  std::fflush(stdout);
  struct stat input = {};
  fstat(STDIN_FILENO, &input);
  QSocketNotifier end(STDIN_FILENO, QSocketNotifier::Read);
  end.setEnabled(S_ISFIFO(input.st_mode));
  QObject::connect(&end, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
  return application.exec();
}
