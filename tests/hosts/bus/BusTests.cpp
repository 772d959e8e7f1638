// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusPendingReply>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>
#include <thread>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/bus/EventHintsExchange.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/bus/StatusReport.h"
#include "hosts/linux/bus/UserNotice.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/bus/PrivateBus.h"

namespace qf {
namespace {

using desktop::until;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr char ownIdentifier[] = "org.quenfold.Tests";
constexpr char peerIdentifier[] = "org.quenfold.Peer";
constexpr std::int32_t wait = AppleEvents::waitReplyMask;

Data bytes(std::string_view text) { return {text.begin(), text.end()}; }

class Peer {
 public:
  explicit Peer(ActivationPolicy policy = ActivationPolicy::accessory, const QString& user = {}) {
    QStringList arguments{peerIdentifier, QString::number(static_cast<int>(policy))};
    if (!user.isEmpty()) arguments << "--user" << user;
    _process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    _process.start(BUS_PEER, arguments);
    isReady = _process.waitForReadyRead(10'000) && _process.readLine() == "ready\n";
  }
  ~Peer() {
    _process.kill();
    _process.waitForFinished();
  }
  std::int32_t pid() const { return static_cast<std::int32_t>(_process.processId()); }

  bool isReady = false;

 private:
  QProcess _process;
};

class Bus : public ::testing::Test {
 protected:
  Bus() {
    events.setOutcomeHandler([this](AppleEventStatus status, const std::string& reason) {
      if (status != AppleEventStatus::noError) reasons.push_back(reason);
    });
  }
  ~Bus() override { QDBusConnection::disconnectFromBus("tests"); }

  AppleEventStatus send(std::int32_t pid, const char (&eventID)[5], std::string_view data,
                        std::int32_t mode = wait, std::int32_t ticks = 300) {
    AppleEvent event{fourCharCode("Test"), fourCharCode(eventID), {}, -1, 0, bytes(data)};
    event.target.processIdentifier = pid;
    return events.sendMessage(event, mode, ticks, reply);
  }

  test::PrivateBus daemon;
  QDBusConnection bus = daemon.connect("tests");
  BusApplications applications{bus, ownIdentifier, ActivationPolicy::accessory};
  DBusAppleEvents events{applications};
  Data reply;
  std::vector<std::string> reasons;
};

TEST_F(Bus, ListsTheInstancesInTheirOrderWithPolicyAndProcess) {
  EXPECT_THAT(applications.running(peerIdentifier), IsEmpty());
  auto first = std::make_unique<Peer>(ActivationPolicy::accessory);
  const Peer second(ActivationPolicy::regular);
  ASSERT_TRUE(first->isReady && second.isReady);

  auto running = applications.running(peerIdentifier);
  ASSERT_EQ(running.size(), 2U);
  EXPECT_EQ(running[0].processIdentifier, first->pid());
  EXPECT_EQ(running[0].activationPolicy, ActivationPolicy::accessory);
  EXPECT_EQ(running[1].processIdentifier, second.pid());
  EXPECT_EQ(running[1].activationPolicy, ActivationPolicy::regular);
  EXPECT_EQ(running[1].bundleIdentifier, peerIdentifier);

  // One that hangs is still there, found within the limit; one that ends is gone.
  kill(first->pid(), SIGSTOP);
  applications.forgetListed();
  QElapsedTimer timer;
  timer.start();
  running = applications.running(peerIdentifier);
  EXPECT_LT(timer.elapsed(), 2000);
  ASSERT_EQ(running.size(), 2U);
  EXPECT_EQ(running[0].processIdentifier, first->pid());
  EXPECT_EQ(running[1].activationPolicy, ActivationPolicy::regular);
  // Asked once more before the command is sent, it costs no further second.
  timer.restart();
  EXPECT_EQ(applications.running(peerIdentifier).size(), 2U);
  EXPECT_LT(timer.elapsed(), 500);

  first.reset();
  ASSERT_TRUE(until([&] { return applications.running(peerIdentifier).size() == 1; }));
}

TEST_F(Bus, RegistersThisProcessAndShowsItsPolicy) {
  EXPECT_THAT(applications.running(ownIdentifier), IsEmpty());
  ASSERT_FALSE(applications.registerInstance(BusApplications::Instances::one));
  applications.setActivationPolicy(ActivationPolicy::regular);
  const auto own = applications.running(ownIdentifier);
  ASSERT_EQ(own.size(), 1U);
  EXPECT_EQ(own[0].processIdentifier, getpid());
  EXPECT_EQ(own[0].activationPolicy, ActivationPolicy::regular);

  auto second = daemon.connect("second");
  BusApplications other(second, ownIdentifier, ActivationPolicy::regular);
  const auto error = other.registerInstance(BusApplications::Instances::one);
  ASSERT_TRUE(error);
  EXPECT_THAT(error->localizedDescription, HasSubstr("runs already"));
  EXPECT_FALSE(other.registerInstance(BusApplications::Instances::several));
  EXPECT_EQ(applications.owners(ownIdentifier).size(), 2);
  QDBusConnection::disconnectFromBus("second");
}

TEST_F(Bus, CarriesEventsAndTheirReplies) {
  const Peer peer;
  ASSERT_EQ(applications.running(peerIdentifier).size(), 1U);
  const std::string binary("\0\xff reply", 8);
  EXPECT_EQ(send(peer.pid(), "echo", binary), AppleEventStatus::noError);
  EXPECT_EQ(reply, bytes(binary));
  EXPECT_EQ(send(peer.pid(), "none", "x"), AppleEventStatus::noError);
  EXPECT_THAT(reply, IsEmpty());
  EXPECT_EQ(send(peer.pid(), "what", "x"), AppleEventStatus::noError);
  EXPECT_THAT(reply, IsEmpty());
  EXPECT_EQ(send(peer.pid(), "hang", "x", 0), AppleEventStatus::noError);
  EXPECT_THAT(reply, IsEmpty());
  EXPECT_THAT(reasons, IsEmpty());
}

/// Gives what a test says, and keeps what came back.
struct Hints : EventHintsExchange {
  void willSend() override {}
  std::optional<EventHints> hintsOfEvent(const Receiver& receiver,
                                         std::chrono::milliseconds) override {
    EXPECT_TRUE(receiver.takesHints);
    return next;
  }
  void answered(const AnswerHints& hints) override { answer = hints; }

  std::optional<EventHints> next = EventHints();
  std::optional<AnswerHints> answer;
};

TEST_F(Bus, HintsTravelBesideAnEventAndItsAnswer) {
  const Peer peer;
  applications.running(peerIdentifier);
  Hints hints;
  events.setHintsExchange(&hints);
  hints.next = {EventHints::Clock::time_point(std::chrono::microseconds(7)), "x11:1:2"};
  EXPECT_EQ(send(peer.pid(), "hint", "x"), AppleEventStatus::noError);
  EXPECT_EQ(reply, bytes("x11:1:27"));
  ASSERT_TRUE(hints.answer);
  EXPECT_EQ(hints.answer->outcome, AnswerHints::Outcome::cleaned);
  EXPECT_EQ(hints.answer->clipboard, "new x11:1:27");

  // Each event has its own, and an answer has those of its handler only.
  hints.next = EventHints();
  EXPECT_EQ(send(peer.pid(), "hint", "x"), AppleEventStatus::noError);
  EXPECT_EQ(reply, bytes("none"));
  EXPECT_EQ(send(peer.pid(), "echo", "x"), AppleEventStatus::noError);
  EXPECT_EQ(hints.answer->outcome, AnswerHints::Outcome::unknown);
  EXPECT_EQ(hints.answer->clipboard, std::nullopt);

  // What is not wanted any more is not sent.
  hints.next = std::nullopt;
  hints.answer.reset();
  EXPECT_EQ(send(peer.pid(), "die ", "x"), AppleEventStatus::noError);
  EXPECT_THAT(reply, IsEmpty());
  EXPECT_FALSE(hints.answer);
  hints.next = EventHints();
  EXPECT_EQ(send(peer.pid(), "echo", "x"), AppleEventStatus::noError);
}

TEST_F(Bus, HandlesEventsFromTheRunLoopOnly) {
  ASSERT_FALSE(applications.registerInstance(BusApplications::Instances::one));
  std::vector<Data> notes;
  events.setEventHandler(fourCharCode("Test"), fourCharCode("note"), [&](const Data& data) {
    notes.push_back(data);
    return std::nullopt;
  });
  const Peer peer;
  applications.running(peerIdentifier);

  EXPECT_EQ(send(peer.pid(), "back", "1"), AppleEventStatus::noError);
  EXPECT_EQ(send(peer.pid(), "echo", "2"), AppleEventStatus::noError);
  EXPECT_EQ(reply, bytes("2"));
  EXPECT_THAT(notes, IsEmpty());
  EXPECT_TRUE(until([&] { return !notes.empty(); }));
  EXPECT_THAT(notes, ElementsAre(bytes("1")));

  // An event that asks for a reply while this thread waits gets none: no nested handling.
  EXPECT_EQ(send(peer.pid(), "back", ""), AppleEventStatus::noError);
  EXPECT_EQ(reply, bytes("-1712"));
  EXPECT_EQ(notes.size(), 1U);
}

TEST_F(Bus, TellsTheFailuresApart) {
  EXPECT_EQ(send(0, "echo", "x"), AppleEventStatus::processNotFound);
  EXPECT_EQ(send(getpid(), "echo", "x"), AppleEventStatus::processNotFound);

  auto peer = std::make_unique<Peer>();
  applications.running(peerIdentifier);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(send(peer->pid(), "hang", "x", wait, 12), AppleEventStatus::timeout);
  EXPECT_GE(timer.elapsed(), 190);
  EXPECT_LT(timer.elapsed(), 4000);

  peer = std::make_unique<Peer>();
  applications.running(peerIdentifier);
  timer.restart();
  EXPECT_EQ(send(peer->pid(), "die ", "x"), AppleEventStatus::connectionInvalid);
  EXPECT_LT(timer.elapsed(), 4000);
  EXPECT_EQ(send(peer->pid(), "echo", "x"), AppleEventStatus::processNotFound);

  EXPECT_THAT(reasons,
              ElementsAre(HasSubstr("not running; is it installed"), HasSubstr("not running"),
                          HasSubstr("did not answer within 0.2 s"), HasSubstr("ended before"),
                          HasSubstr("not running any more")));
}

TEST_F(Bus, CarriesSixteenMebibytesAndNoMore) {
  const Peer peer;
  applications.running(peerIdentifier);
  const std::string most(DBusAppleEvents::largestData, 'x');
  EXPECT_EQ(send(peer.pid(), "echo", most), AppleEventStatus::noError);
  EXPECT_EQ(reply.size(), most.size());
  EXPECT_EQ(send(peer.pid(), "echo", most + "x"), AppleEventStatus::connectionInvalid);
  EXPECT_THAT(reply, IsEmpty());
  EXPECT_THAT(reasons, ElementsAre(HasSubstr("more than 16 MiB")));
  EXPECT_EQ(send(peer.pid(), "echo", "x"), AppleEventStatus::noError);
}

TEST_F(Bus, RefusesOtherUsers) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can start a peer of another user";
  const Peer stranger(ActivationPolicy::accessory, "65534");
  if (!stranger.isReady) GTEST_SKIP() << "the peer cannot be run by another user here";
  applications.running(peerIdentifier);
  EXPECT_EQ(send(stranger.pid(), "echo", "x"), AppleEventStatus::connectionInvalid);
  EXPECT_THAT(reasons, ElementsAre(HasSubstr("not a program of this user")));
}

TEST_F(Bus, AnswersCallersThatBreakTheRules) {
  bool ran = false;
  events.setEventHandler(fourCharCode("Test"), fourCharCode("note"), [&](const Data&) {
    ran = true;
    return bytes("done");
  });
  auto other = daemon.connect("other");
  const auto call = [&](const QVariantList& arguments) {
    QDBusMessage message =
        busCall(bus.baseService(), bus::applicationPath, bus::applicationInterface, "HandleEvent");
    message.setArguments(arguments);
    QDBusPendingCall pending = other.asyncCall(message);
    EXPECT_TRUE(until([&] { return pending.isFinished(); }, std::chrono::seconds(20)));
    return pending.reply();
  };
  // The larger one is also more than libdbus hears out by itself.
  for (const std::size_t size : {DBusAppleEvents::largestData + 1, std::size_t{64} << 20})
    EXPECT_EQ(call({fourCharCode("Test"), fourCharCode("note"),
                    QByteArray(static_cast<qsizetype>(size), 'x')})
                  .errorName(),
              "org.freedesktop.DBus.Error.LimitsExceeded");
  EXPECT_EQ(call({"text"}).type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(call({fourCharCode("Test"), fourCharCode("note"), "text"}).type(),
            QDBusMessage::ErrorMessage);
  EXPECT_FALSE(ran);
  EXPECT_EQ(call({fourCharCode("Test"), fourCharCode("note"), QByteArray()}).arguments(),
            QVariantList{QByteArray("done")});
  QDBusConnection::disconnectFromBus("other");
}

TEST_F(Bus, SurvivesTheLossOfTheBus) {
  DBusDistributedNotificationCenter notifications(bus);
  const Peer peer;
  applications.running(peerIdentifier);
  std::thread killer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    kill(static_cast<pid_t>(daemon.processIdentifier()), SIGKILL);
  });
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(send(peer.pid(), "hang", "x"), AppleEventStatus::connectionInvalid);
  EXPECT_LT(timer.elapsed(), 4000);
  killer.join();
  EXPECT_EQ(send(peer.pid(), "echo", "x"), AppleEventStatus::connectionInvalid);
  EXPECT_THAT(applications.running(peerIdentifier), IsEmpty());
  notifications.post("test.a");
  EXPECT_FALSE(notifications.availability().isAvailable);
  EXPECT_THAT(reasons, ElementsAre(HasSubstr("was lost"), HasSubstr("was lost")));
}

TEST_F(Bus, MissingIsSaidAndFailsCleanly) {
  const QDBusConnection none = QDBusConnection::connectToBus("unix:path=/nowhere", "none");
  BusApplications lonely(none, ownIdentifier, ActivationPolicy::regular);
  DBusAppleEvents deaf(lonely);
  DBusDistributedNotificationCenter notifications(none);
  StatusReport report(none, [] { return std::map<std::string, Availability>(); });
  UserNotice(none, "Tests", "icon").tell("x");
  notifications.post("test.a");
  EXPECT_THAT(lonely.running(peerIdentifier), IsEmpty());
  EXPECT_THAT(lonely.availability().reason, HasSubstr("no D-Bus session bus"));
  EXPECT_TRUE(lonely.registerInstance(BusApplications::Instances::several));
  EXPECT_EQ(deaf.sendMessage({}, wait, 60, reply), AppleEventStatus::connectionInvalid);
}

TEST_F(Bus, NotificationsReachEveryoneOnceAndInOrder) {
  DBusDistributedNotificationCenter notifications(bus);
  std::string heard;
  std::uint64_t second = 0;
  notifications.addObserver("test.a", [&] {
    heard += 'a';
    notifications.removeObserver(second);
  });
  second = notifications.addObserver("test.a", [&] { heard += '!'; });
  notifications.addObserver("test.b", [&] { heard += 'b'; });

  for (const char* name : {"test.a", "test.b", "test.a", "test.A", "test.a.b", "test.b"})
    notifications.post(name);
  EXPECT_EQ(heard, "");
  EXPECT_TRUE(until([&] { return heard.size() >= 4; }));

  const Peer peer;
  applications.running(peerIdentifier);
  EXPECT_EQ(send(peer.pid(), "post", "bbaab"), AppleEventStatus::noError);
  EXPECT_TRUE(until([&] { return heard.size() >= 9; }));
  QTimer::singleShot(50, [&] { heard += '.'; });
  EXPECT_TRUE(until([&] { return heard.back() == '.'; }));
  EXPECT_EQ(heard, "ababbbaab.");
}

TEST_F(Bus, ReportsTheStateOfServices) {
  StatusReport report(bus, [] {
    return std::map<std::string, Availability>{
        {"Tray", Availability::unavailable("no tray on this desktop")},
        {"Events", Availability::available()}};
  });
  report.setShortcutSource([] {
    return std::map<std::string, ShortcutStatus>{
        {"id", {ShortcutStatus::State::refused, "another program holds Ctrl+K"}}};
  });
  auto other = daemon.connect("other");
  const auto property = [&](const char* name) {
    QDBusMessage get =
        busCall(bus.baseService(), bus::statusPath, "org.freedesktop.DBus.Properties", "Get");
    get << "org.quenfold.Status1" << name;
    QDBusPendingReply<QDBusVariant> answer = other.asyncCall(get);
    EXPECT_TRUE(until([&] { return answer.isFinished(); }));
    return qvariant_cast<QDBusArgument>(answer.value().variant());
  };
  const auto services = property("Services");
  EXPECT_EQ(services.currentSignature(), "a{s(bs)}");
  const auto states = qdbus_cast<ServiceStates>(services);
  EXPECT_EQ(states.keys(), (QStringList{"Events", "Tray"}));
  EXPECT_TRUE(states["Events"].isAvailable);
  EXPECT_FALSE(states["Tray"].isAvailable);
  EXPECT_EQ(states["Tray"].reason, "no tray on this desktop");
  const auto shortcuts = property("Shortcuts");
  EXPECT_EQ(shortcuts.currentSignature(), "a{s(ss)}");
  const auto reported = qdbus_cast<ReportedShortcuts>(shortcuts);
  EXPECT_EQ(reported["id"].state, "refused");
  EXPECT_EQ(reported["id"].reason, "another program holds Ctrl+K");
  QDBusConnection::disconnectFromBus("other");
}

/// Stands in for the desktop's notification service.
class NotificationService : public QDBusVirtualObject {
 public:
  QStringList bodies;
  QList<uint> replaced;

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.member() != "Notify" || message.signature() != "susssasa{sv}i") return false;
    bodies << message.arguments().at(4).toString();
    replaced << message.arguments().at(1).toUInt();
    connection.send(message.createReply(uint(bodies.size())));
    return true;
  }
};

TEST_F(Bus, TellsThePersonOncePerQuietTime) {
  auto desktop = daemon.connect("desktop");
  NotificationService service;
  desktop.registerVirtualObject("/org/freedesktop/Notifications", &service);
  ASSERT_TRUE(desktop.registerService("org.freedesktop.Notifications"));

  UserNotice notice(bus, "Quenfold", "quenfold");
  const auto start = UserNotice::Clock::now();
  notice.tell("a < b", start);
  notice.tell("a < b", start + std::chrono::seconds(29));
  notice.tell("other", start + std::chrono::seconds(29));
  notice.tell("a < b", start + std::chrono::seconds(30));
  EXPECT_TRUE(until([&] { return service.bodies.size() >= 3; }));
  EXPECT_EQ(service.bodies, (QStringList{"a &lt; b", "other", "a &lt; b"}));

  for (const char* text : {"first", "overtaken", "second"}) notice.tellInstead(text);
  EXPECT_TRUE(until([&] { return service.bodies.size() >= 5; }));
  notice.tellInstead("second");
  EXPECT_TRUE(until([&] { return service.bodies.size() >= 6; }));
  EXPECT_EQ(service.bodies.mid(3), (QStringList{"first", "second", "second"}));
  EXPECT_EQ(service.replaced, (QList<uint>{0, 0, 0, 0, 4, 5}));
  QDBusConnection::disconnectFromBus("desktop");
}

}  // namespace
}  // namespace qf

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
