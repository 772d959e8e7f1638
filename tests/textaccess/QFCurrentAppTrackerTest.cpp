// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "tests/support/FakeWorkspace.h"
#include "tests/support/LogCapture.h"
#include "textaccess/QFCurrentAppTracker.h"

namespace qf {
namespace {

using testing::ElementsAre;

constexpr std::int32_t agent = 1;
constexpr std::int32_t editor = 41;
constexpr std::int32_t script = 42;

class QFCurrentAppTrackerTest : public testing::Test {
 protected:
  QFCurrentAppTrackerTest() {
    workspace.currentProcess = agent;
    workspace.applications = {{"org.quenfold.Menu", "Agent", agent},
                              {"org.example.editor", "Editor", editor},
                              {std::nullopt, "Script", script}};
  }

  FakeWorkspace workspace;
  LogCapture log;
};

TEST_F(QFCurrentAppTrackerTest, KeepsTheApplicationTheUserCameFrom) {
  workspace.frontmost = agent;
  QFCurrentAppTracker tracker(workspace);
  tracker.logCurrentStatus();
  EXPECT_THAT(log.lines,
              ElementsAre("BundleID: org.quenfold.undefined", "Name: Undefined", "PID: 0"));

  workspace.bringToFront(editor);
  EXPECT_EQ(tracker.frontBundleIdentifier(), "org.example.editor");
  workspace.bringToFront(agent);
  EXPECT_EQ(tracker.frontAppName(), "Editor");
  EXPECT_EQ(tracker.frontProcessIdentifier(), editor);

  workspace.bringToFront(script);
  EXPECT_EQ(tracker.frontBundleIdentifier(), std::nullopt);
  EXPECT_EQ(tracker.frontAppName(), "Script");
  EXPECT_EQ(tracker.frontProcessIdentifier(), script);
}

TEST_F(QFCurrentAppTrackerTest, SaysWhenNoApplicationCanBeTold) {
  workspace.frontmost = editor;
  QFCurrentAppTracker tracker(workspace);
  workspace.frontmost = 0;
  tracker.refresh();
  EXPECT_THAT(log.lines,
              ElementsAre("Warning: Could not accurately determine frontmost application!"));
  EXPECT_EQ(tracker.frontProcessIdentifier(), editor);
}

}  // namespace
}  // namespace qf
