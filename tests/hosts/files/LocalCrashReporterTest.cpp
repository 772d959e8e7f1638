// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <stdexcept>
#include <thread>

#include "hosts/linux/files/LocalCrashReporter.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

int endlessly(int depth);
int (*volatile again)(int) = endlessly;

int endlessly(int depth) {
  volatile char frame[4096] = {};
  return again(depth + 1) + frame[depth % 4096];
}

class LocalCrashReporterTest : public testing::Test {
 protected:
  // How the child process that does this ended, as waitpid tells it.
  static int statusAfter(const std::function<void()>& act) {
    const pid_t child = fork();
    if (child == 0) {
      LocalCrashReporter("example", "1.2.3").start();
      act();
      _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
  }

  std::vector<std::filesystem::path> reports() const {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(home / ".local/state/quenfold"))
      paths.push_back(entry.path());
    return paths;
  }
  std::string onlyReport() const {
    const auto paths = reports();
    EXPECT_EQ(paths.size(), 1u);
    return paths.empty() ? std::string() : TemporaryHome::text(paths.front());
  }

  TemporaryHome home;
};

TEST_F(LocalCrashReporterTest, leavesAReportAndEndsAsWithoutIt) {
  const int status = statusAfter([] {
    void* nowhere = mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    *static_cast<volatile char*>(nowhere) = 1;
  });
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV) << status;
  EXPECT_THAT(onlyReport(),
              AllOf(HasSubstr("example 1.2.3 crashed\nTime: 20"), HasSubstr("Signal: 11 (SIGSEGV)"),
                    ContainsRegex("Address: 0x[0-9a-f]+000\n"),
                    ContainsRegex("Back trace:\n.*linux_files_tests")));
  EXPECT_THAT(reports().front().filename().string(),
              ContainsRegex("^crash-example-20[0-9]{6}T[0-9]{6}Z-[0-9]+\\.txt$"));
  EXPECT_EQ(TemporaryHome::permissions(reports().front()), 0600u);
}

TEST_F(LocalCrashReporterTest, reportsAStackThatRanOut) {
  const int status = statusAfter([] { endlessly(0); });
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV) << status;
  EXPECT_THAT(onlyReport(), HasSubstr("SIGSEGV"));
}

TEST_F(LocalCrashReporterTest, reportsAnExceptionThatNobodyCatchesOnAnyThread) {
  const int status =
      statusAfter([] { std::thread([] { throw std::runtime_error("the reason"); }).join(); });
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT) << status;
  EXPECT_THAT(onlyReport(), AllOf(HasSubstr("(SIGABRT)\n"),
                                  HasSubstr("Uncaught exception: std::runtime_error: the reason")));
}

TEST_F(LocalCrashReporterTest, keepsTheTenNewest) {
  for (int hour = 0; hour < 12; ++hour) {
    const auto path = home / (".local/state/quenfold/crash-old-" + std::to_string(hour) + ".txt");
    TemporaryHome::write(path, "old");
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 - hour));
  }
  statusAfter([] {});
  EXPECT_EQ(reports().size(), 10u);
  EXPECT_TRUE(WIFSIGNALED(statusAfter([] { raise(SIGFPE); })));
  EXPECT_EQ(reports().size(), 10u);
  EXPECT_FALSE(std::filesystem::exists(home / ".local/state/quenfold/crash-old-2.txt"));
  EXPECT_TRUE(std::filesystem::exists(home / ".local/state/quenfold/crash-old-3.txt"));
}

TEST_F(LocalCrashReporterTest, leavesNoPartOfAReportOnAFullDisk) {
  for (const rlim_t room : {rlim_t{0}, rlim_t{200}}) {
    statusAfter([room] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      setrlimit(RLIMIT_FSIZE, &limit);
      std::abort();
    });
    EXPECT_TRUE(reports().empty()) << room;
  }
}

TEST_F(LocalCrashReporterTest, withoutAFolderStillEndsAsWithoutIt) {
  TemporaryHome::write(home / ".local/state", "no folder");
  const int status = statusAfter([] { std::abort(); });
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT) << status;
}

}  // namespace
}  // namespace qf
