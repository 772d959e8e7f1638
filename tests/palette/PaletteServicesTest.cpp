// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "palette/QFPaletteServices.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;

struct NotingServices : QFPaletteServices {
  void doCleaner(Pasteboard* pasteboard, const std::string& userData,
                 std::optional<std::string>& error) override {
    requests.push_back(userData);
    QFPaletteServices::doCleaner(pasteboard, userData, error);
  }
  std::vector<std::string> requests;
};

TEST(PaletteServices, AcceptRequestsAndChangeNothing) {
  LogCapture log;
  NotingServices services;
  FakePasteboard pasteboard;
  pasteboard.setString("text");
  const auto changeCount = pasteboard.changeCount();
  std::optional<std::string> error;

  services.cleanText(&pasteboard, "data", error);
  services.doPaletteCleaner(&pasteboard, "data", error);
  EXPECT_THAT(services.requests, ElementsAre("data")) << "no cleaner was clicked";
  services.setLastCleanerClicked("upper");
  services.doPaletteCleaner(&pasteboard, "data", error);
  services.setLastCleanerClicked(std::nullopt);
  services.doPaletteCleaner(nullptr, "data", error);

  EXPECT_THAT(services.requests, ElementsAre("data", "upper"));
  EXPECT_EQ(services.lastCleanerClicked(), "");
  EXPECT_THAT(log.lines, ElementsAre("doPaletteCleaner called.", "lastCleanerClicked = ",
                                     "doPaletteCleaner called.", "lastCleanerClicked = upper",
                                     "doPaletteCleaner called.", "lastCleanerClicked = (null)"));
  EXPECT_EQ(error, std::nullopt);
  EXPECT_EQ(pasteboard.changeCount(), changeCount);
}

}  // namespace
}  // namespace qf
