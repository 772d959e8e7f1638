// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <csignal>
#include <future>

#include "hosts/linux/clipboard/XcbPasteboard.h"
#include "hosts/linux/clipboard/XcbPasteboards.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/clipboard/SelectionPeer.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using namespace std::chrono_literals;
using desktop::until;
using testing::Contains;
using testing::ElementsAre;

Data bytesOf(std::string_view text) { return Data(text.begin(), text.end()); }

std::string megabytes(std::size_t count) {
  std::string text;
  for (std::size_t line = 0; text.size() < count << 20; ++line)
    text += "line " + std::to_string(line) + " ä文𝄞\n";
  return text;
}

std::string outputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 65536> buffer;
  while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
    output.append(buffer.data(), count);
  pclose(pipe);
  return output;
}

auto durationOf(const std::function<void()>& act) {
  const auto start = SelectionPeer::Clock::now();
  act();
  return SelectionPeer::Clock::now() - start;
}

class XcbPasteboardTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!getenv("DISPLAY")) GTEST_SKIP() << "needs a desktop";
    pasteboard = std::make_unique<XcbPasteboard>();
  }

  std::unique_ptr<XcbPasteboard> pasteboard;
};

// A treatment that gives some targets whole and leaves the rest to `otherwise`.
SelectionOwner::Treatment givingText(SelectionOwner::Treatment otherwise) {
  return [otherwise](SelectionPeer& peer, const xcb_selection_request_event_t& request) {
    EXPECT_NE(request.target, peer.atom("DELETE")) << "would delete the owner's text";
    if (request.target == peer.atoms.targets) {
      const xcb_atom_t targets[] = {peer.atoms.targets, 0x00FFFFFF, peer.atoms.utf8String,
                                    peer.atom("DELETE"), peer.atom("image/png")};
      peer.put(request.requestor, request.property, XCB_ATOM_ATOM, 32, std::size(targets), targets);
    } else if (request.target == peer.atoms.utf8String) {
      peer.put(request.requestor, request.property, peer.atoms.utf8String, 8, 4, "text");
    } else {
      return otherwise(peer, request);
    }
    peer.notify(request, request.property);
    return true;
  };
}

bool beginAndStop(SelectionPeer& peer, const xcb_selection_request_event_t& request) {
  const std::uint32_t size = 100;
  peer.put(request.requestor, request.property, peer.atoms.incr, 32, 1, &size);
  peer.notify(request, request.property);
  std::this_thread::sleep_for(100ms);
  peer.put(request.requestor, request.property, request.target, 8, 4, "part");
  return true;
}

TEST_F(XcbPasteboardTest, givesOtherProgramsItsTextWhileThisThreadWaits) {
  const std::string large = megabytes(100);
  for (const std::string& text : {std::string("Grüße"), large}) {
    ASSERT_TRUE(pasteboard->setString(text));
    EXPECT_EQ(outputOf("xclip -selection clipboard -o -t UTF8_STRING"), text);
    EXPECT_EQ(outputOf("xclip -selection clipboard -o -t 'text/plain;charset=utf-8'"), text);
  }
  pasteboard->setString("Grüße");
  EXPECT_EQ(outputOf("xclip -selection clipboard -o -t STRING"),
            "Gr\xFC\xDF"
            "e");
  pasteboard->setString("文");
  EXPECT_EQ(outputOf("xclip -selection clipboard -o -t STRING 2>/dev/null"), "");
}

TEST_F(XcbPasteboardTest, readsFromOtherPrograms) {
  const std::string large = megabytes(100);
  for (const std::string& text : {std::string("Grüße"), large}) {
    const auto before = pasteboard->changeCount();
    FILE* xclip = popen("xclip -selection clipboard", "w");
    fwrite(text.data(), 1, text.size(), xclip);
    pclose(xclip);
    EXPECT_TRUE(until([&] { return pasteboard->changeCount() == before + 1; }));
    EXPECT_EQ(pasteboard->string(), text);
    EXPECT_THAT(pasteboard->items(),
                ElementsAre(PasteboardItem{{{std::string(pasteboardTypeString), bytesOf(text)}}}));
  }
  outputOf("printf picture | xclip -selection clipboard -t image/png >/dev/null");
  EXPECT_TRUE(until([&] { return pasteboard->string() == std::nullopt; }));
  EXPECT_THAT(pasteboard->items(),
              ElementsAre(PasteboardItem{{{"image/png", bytesOf("picture")}}}));
}

TEST_F(XcbPasteboardTest, readsIllFormedTextWithReplacements) {
  outputOf(
      "printf 'Gr\\374\\342\\202 \\303\\237' | xclip -selection clipboard -t UTF8_STRING "
      ">/dev/null");
  EXPECT_TRUE(until([&] { return pasteboard->string() == "Gr\uFFFD\uFFFD ß"; }))
      << pasteboard->string().value_or("nothing");
}

// The contents that were there before are told apart by their owner; later ones by the time too.
TEST_F(XcbPasteboardTest, knowsContentsThatAreOlderThanItself) {
  XcbPasteboard other;
  ASSERT_TRUE(other.setString("old"));
  const XcbPasteboard late;
  EXPECT_TRUE(late.hasContents(other.contentsIdentifier()));
  EXPECT_TRUE(other.hasContents(late.contentsIdentifier()));
  const std::string old = other.contentsIdentifier();
  ASSERT_TRUE(other.setString("new"));
  EXPECT_FALSE(late.hasContents(old));
  EXPECT_TRUE(late.hasContents(other.contentsIdentifier()));
  EXPECT_EQ(late.contentsIdentifier(), other.contentsIdentifier());
}

TEST_F(XcbPasteboardTest, anOwnerThatSaysNothingCostsASecondAndGivesNothing) {
  const SelectionOwner owner("CLIPBOARD", [](auto&, auto&) { return true; });
  const auto takes = durationOf([&] { EXPECT_EQ(pasteboard->string(), std::nullopt); });
  EXPECT_GT(takes, 900ms);
  EXPECT_LT(takes, 1900ms);
  EXPECT_LT(durationOf([&] { EXPECT_TRUE(pasteboard->items().empty()); }), 1900ms);
  EXPECT_LT(durationOf([&] { EXPECT_TRUE(pasteboard->setString("ours")); }), 900ms);
  EXPECT_EQ(pasteboard->string(), "ours");
}

TEST_F(XcbPasteboardTest, aFormThatStopsHalfwayIsLeftOut) {
  const SelectionOwner owner("CLIPBOARD", givingText(beginAndStop));
  EXPECT_THAT(pasteboard->items(),
              ElementsAre(PasteboardItem{{{std::string(pasteboardTypeString), bytesOf("text")}}}));
}

TEST_F(XcbPasteboardTest, anOwnerThatDiesHalfwayIsNotWaitedFor) {
  const SelectionOwner owner("CLIPBOARD", [](auto& peer, auto& request) {
    beginAndStop(peer, request);
    return false;
  });
  EXPECT_LT(durationOf([&] { EXPECT_EQ(pasteboard->string(), std::nullopt); }), 900ms);
}

TEST_F(XcbPasteboardTest, anOwnerThatDripsIsGivenUp) {
  const SelectionOwner owner("CLIPBOARD", [](auto& peer, auto& request) {
    beginAndStop(peer, request);
    for (int piece = 0; piece < 12; ++piece) {
      std::this_thread::sleep_for(500ms);
      peer.put(request.requestor, request.property, request.target, 8, 1, "x");
    }
    return true;
  });
  EXPECT_LT(durationOf([&] {
              EXPECT_EQ(pasteboard->text().error().localizedDescription,
                        "the application that copied it does not hand over the text on the "
                        "clipboard");
            }),
            5s);
}

TEST_F(XcbPasteboardTest, textThatIsTooLargeIsToldAsThat) {
  const SelectionOwner owner("CLIPBOARD", [](auto& peer, auto& request) {
    const std::uint32_t size = 500'000'000;
    peer.put(request.requestor, request.property, peer.atoms.incr, 32, 1, &size);
    peer.notify(request, request.property);
    return true;
  });
  EXPECT_EQ(pasteboard->text().error().localizedDescription,
            "the text on the clipboard is larger than 256 MiB");
}

TEST_F(XcbPasteboardTest, anOwnerThatRefusesOrLiesGivesNothing) {
  {
    const SelectionOwner owner("CLIPBOARD", [](auto& peer, auto& request) {
      peer.notify(request, XCB_ATOM_NONE);
      return true;
    });
    EXPECT_EQ(pasteboard->string(), std::nullopt);
    EXPECT_TRUE(pasteboard->items().empty());
  }
  const SelectionOwner owner("CLIPBOARD", [](auto& peer, auto& request) {
    const std::uint32_t wrong[] = {0xFFFFFFFF, 7};
    if (request.target == peer.atoms.utf8String)  // numbers for text
      peer.put(request.requestor, request.property, peer.atoms.utf8String, 32, 2, wrong);
    if (request.target == peer.atoms.targets)  // text for atoms
      peer.put(request.requestor, request.property, XCB_ATOM_ATOM, 8, 2, wrong);
    peer.notify(request, request.property);  // for all else: a property that is not there
    return true;
  });
  EXPECT_EQ(pasteboard->string(), std::nullopt);
}

TEST_F(XcbPasteboardTest, answersTheProtocolsOfSelections) {
  pasteboard->setItems(
      {{{{"text/html", bytesOf("<b>")}, {std::string(pasteboardTypeString), bytesOf("b")}}}});
  SelectionPeer peer;
  const xcb_atom_t first = peer.atoms.transfer, second = peer.atom("_SECOND"),
                   list = peer.atom("_LIST"), html = peer.atom("text/html");
  ASSERT_EQ(peer.answerTo(peer.atoms.targets), first);
  const auto targets = peer.numbers(first);
  for (const char* name :
       {"TARGETS", "TIMESTAMP", "MULTIPLE", "SAVE_TARGETS", "text/html", "text/plain;charset=utf-8",
        "UTF8_STRING", "text/plain", "STRING", "TEXT"})
    EXPECT_THAT(targets, Contains(peer.atom(name))) << name;

  ASSERT_EQ(peer.answerTo(peer.atoms.timestamp), first);
  const auto since = peer.numbers(first).front();
  EXPECT_NE(since, static_cast<std::uint32_t>(XCB_CURRENT_TIME));
  // Who has not yet heard of the change asks with an earlier time.
  EXPECT_EQ(peer.answerTo(peer.atoms.utf8String, since - 1), first);
  EXPECT_EQ(peer.answerTo(peer.atom("image/png")), XCB_ATOM_NONE);

  const xcb_atom_t pairs[] = {html,  first, peer.atom("image/png"), second, peer.atoms.multiple,
                              second};
  peer.put(peer.window, list, peer.atoms.atomPair, 32, std::size(pairs), pairs);
  peer.ask(peer.atoms.multiple, list);
  ASSERT_EQ(peer.answer(), list);
  EXPECT_THAT(peer.numbers(list), ElementsAre(html, first, peer.atom("image/png"), XCB_ATOM_NONE,
                                              peer.atoms.multiple, XCB_ATOM_NONE));
  const auto value = peer.property(first, true);
  EXPECT_EQ(value->type, html);
  EXPECT_EQ(std::string(static_cast<char*>(xcb_get_property_value(value.get())), value->value_len),
            "<b>");
}

TEST_F(XcbPasteboardTest, aRequestorThatStopsOrDiesHindersNobody) {
  const std::string text = megabytes(10);
  pasteboard->setString(text);
  SelectionPeer stopped;
  ASSERT_EQ(stopped.answerTo(stopped.atoms.utf8String), stopped.atoms.transfer);
  ASSERT_EQ(stopped.property(stopped.atoms.transfer, true)->type, stopped.atoms.incr);
  auto dead = std::make_unique<SelectionPeer>();
  ASSERT_EQ(dead->answerTo(dead->atoms.utf8String), dead->atoms.transfer);
  ASSERT_EQ(dead->property(dead->atoms.transfer, true)->type, dead->atoms.incr);
  dead.reset();

  XcbPasteboard other;
  auto read = std::async(std::launch::async, [&] { return other.string(); });
  EXPECT_EQ(outputOf("xclip -selection clipboard -o"), text);
  EXPECT_EQ(read.get(), text);
  // What was begun goes on with its own contents, though there are others now.
  pasteboard->setString("new");
  std::string rest;
  for (;;) {
    ASSERT_TRUE(stopped.next(XCB_PROPERTY_NOTIFY));
    const auto piece = stopped.property(stopped.atoms.transfer, true);
    if (piece->type == XCB_ATOM_NONE) continue;  // the notice of our own taking
    if (piece->value_len == 0) break;
    rest.append(static_cast<char*>(xcb_get_property_value(piece.get())), piece->value_len);
  }
  EXPECT_EQ(rest, text);
  // Transfers under way would hold up the end.
  EXPECT_LT(durationOf([&] { pasteboard.reset(); }), 900ms);
}

TEST_F(XcbPasteboardTest, leavesItsContentsToAClipboardManager) {
  const std::vector<PasteboardItem> items{
      {{{"image/png", Data(2'000'000, 1)}, {std::string(pasteboardTypeString), bytesOf("kept")}}}};
  std::vector<PasteboardItem> saved;
  std::vector<std::uint32_t> asked;
  {
    XcbPasteboard reader;
    const SelectionOwner manager("CLIPBOARD_MANAGER", [&](auto& peer, auto& request) {
      if (request.target == peer.atoms.saveTargets) saved = reader.items();
      peer.notify(request, request.property);
      return true;
    });
    pasteboard->setItems(items);
    EXPECT_LT(durationOf([&] { pasteboard.reset(); }), 900ms);
  }
  EXPECT_EQ(saved, items);

  const SelectionOwner silent("CLIPBOARD_MANAGER", [](auto&, auto&) { return true; });
  pasteboard = std::make_unique<XcbPasteboard>();
  EXPECT_LT(durationOf([&] { pasteboard.reset(); }), 900ms);  // nothing to leave
  pasteboard = std::make_unique<XcbPasteboard>();
  pasteboard->setItems(items);
  EXPECT_LT(durationOf([&] { pasteboard.reset(); }), 1900ms);
}

TEST_F(XcbPasteboardTest, theLossOfTheServerIsAStateNotAnEnd) {
  const desktop::XServer server;
  const LogCapture log;
  XcbPasteboard lost(server.display);
  EXPECT_TRUE(lost.setString("before"));
  EXPECT_TRUE(lost.availability().isAvailable);
  const auto count = lost.changeCount();
  server.signal(SIGKILL);
  EXPECT_TRUE(until([&] { return !lost.availability().isAvailable; }));
  EXPECT_EQ(lost.availability().reason, "the X server closed the connection");
  EXPECT_FALSE(lost.setString("after"));
  EXPECT_EQ(lost.string(), std::nullopt);
  EXPECT_TRUE(lost.items().empty());
  EXPECT_EQ(lost.changeCount(), count);
  EXPECT_THAT(log.lines, Contains(testing::HasSubstr("the X server closed the connection")));
}

TEST(XcbPasteboards, withoutAServerSayWhy) {
  XcbPasteboard none(":54321");
  EXPECT_EQ(none.availability().reason, "cannot connect to the X server :54321");
  EXPECT_FALSE(none.setString("text"));
  EXPECT_EQ(none.string(), std::nullopt);
  none.clearContents();
}

TEST(XcbPasteboards, knowTheGeneralOneOnly) {
  XcbPasteboards pasteboards;
  EXPECT_EQ(pasteboards.pasteboardWithName(NSGeneralPboard), &pasteboards.generalPasteboard());
  EXPECT_EQ(pasteboards.pasteboardWithName("NSFindPboard"), nullptr);
}

}  // namespace
}  // namespace qf
