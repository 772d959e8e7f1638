// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QTimer>
#include <stdexcept>

#include "hosts/qt/QtApplication.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

/// Throws from the run loop and quits after that.
class ThrowingDelegate final : public ApplicationDelegate {
 public:
  explicit ThrowingDelegate(Application& application) : _application(application) {}

  void applicationWillFinishLaunching() override {}
  void applicationDidFinishLaunching() override {
    QTimer::singleShot(0, [] { throw std::runtime_error("no such cleaner"); });
    QTimer::singleShot(1, [this] { _application.terminate(); });
  }
  void applicationWillTerminate() override {}
  void applicationDidReopen() override {}

 private:
  Application& _application;
};

int runThrowing(bool endsOnExceptions) noexcept {  // as `main` is
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int argc = 1;
  char name[] = "application_tests";
  char* argv[] = {name, nullptr};
  QtApplication application(argc, argv);
  application.setEndsOnExceptions([=] { return endsOnExceptions; });
  ThrowingDelegate delegate(application);
  return application.run(delegate);
}

TEST(Application, EndsOnAnUncaughtExceptionUnlessToldToGoOn) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(runThrowing(true), "no such cleaner");
  LogCapture log;
  EXPECT_EQ(runThrowing(false), 0);
  EXPECT_THAT(log.lines, testing::ElementsAre("Uncaught exception, ignored: no such cleaner"));
}

}  // namespace
}  // namespace qf
