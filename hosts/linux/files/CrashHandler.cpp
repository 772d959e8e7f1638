// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/CrashHandler.h"

#include <cxxabi.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <exception>
#include <string_view>

namespace qf {
namespace {

constexpr std::array<std::pair<int, std::string_view>, 5> fatalSignals = {{{SIGSEGV, "SIGSEGV"},
                                                                           {SIGBUS, "SIGBUS"},
                                                                           {SIGFPE, "SIGFPE"},
                                                                           {SIGILL, "SIGILL"},
                                                                           {SIGABRT, "SIGABRT"}}};
// A back trace that waits for a lock the crashed code holds must not keep the process for ever.
constexpr unsigned reportSeconds = 5;

/// Text in memory of its own; what does not fit is cut.
template <std::size_t capacity>
class FixedText {
 public:
  FixedText& operator<<(std::string_view text) {
    const std::size_t length = std::min(text.size(), capacity - 1 - _length);
    std::copy_n(text.data(), length, _text.data() + _length);
    _length += length;
    return *this;
  }
  FixedText& number(std::uint64_t value, int base = 10) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), value, base).ptr;
    return *this << std::string_view(digits.data(), end);
  }
  FixedText& twoDigits(std::uint64_t value) {
    return (value < 10 ? *this << "0" : *this).number(value);
  }
  std::string_view view() const { return {_text.data(), _length}; }
  const char* c_str() const { return _text.data(); }  // zero behind the text: never written

 private:
  std::array<char, capacity> _text{};
  std::size_t _length = 0;
};

FixedText<512> heading;
FixedText<4096> pathPrefix;
FixedText<4096> pathToRemove;
FixedText<2048> uncaughtException;
std::terminate_handler previousTerminate = nullptr;
std::atomic<pid_t> reportingThread = 0;
alignas(16) std::array<std::byte, 65536> secondStack;

bool write(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

template <std::size_t capacity>
void appendTime(FixedText<capacity>& text, std::string_view dateSeparator,
                std::string_view timeSeparator) {
  using namespace std::chrono;  // whose calendar is mere arithmetic, unlike gmtime_r
  const auto now = floor<seconds>(system_clock::now());
  const auto day = floor<days>(now);
  const year_month_day date(day);
  const hh_mm_ss time(now - day);
  text.number(static_cast<std::uint64_t>(static_cast<int>(date.year()))) << dateSeparator;
  text.twoDigits(static_cast<unsigned>(date.month())) << dateSeparator;
  text.twoDigits(static_cast<unsigned>(date.day())) << "T";
  text.twoDigits(static_cast<std::uint64_t>(time.hours().count())) << timeSeparator;
  text.twoDigits(static_cast<std::uint64_t>(time.minutes().count())) << timeSeparator;
  text.twoDigits(static_cast<std::uint64_t>(time.seconds().count())) << "Z";
}

/// False where the file has no room for it.
bool writeReport(int file, int signal, const siginfo_t& info) {
  FixedText<1024> text;
  text << heading.view() << "\nTime: ";
  appendTime(text, "-", ":");
  text << "\nProcess: ";
  text.number(static_cast<std::uint64_t>(getpid()));
  text << "\nSignal: ";
  text.number(static_cast<std::uint64_t>(signal));
  for (const auto& [number, name] : fatalSignals) {
    if (number == signal) text << " (" << name << ")";
  }
  if (info.si_code > 0 && signal != SIGABRT) {  // from the processor, not from a process
    text << "\nAddress: 0x";
    text.number(reinterpret_cast<std::uintptr_t>(info.si_addr), 16);
  }
  write(file, text.view());
  if (!uncaughtException.view().empty()) {
    write(file, "\nUncaught exception: ");
    write(file, uncaughtException.view());
  }
  write(file, "\n\nBack trace:\n");
  std::array<void*, 128> frames;
  const int count = backtrace(frames.data(), frames.size());
  backtrace_symbols_fd(frames.data(), count, file);
  return write(file, "\n");  // fails after whatever failed before it
}

void keepReport(int signal, const siginfo_t& info) {
  if (pathPrefix.view().empty()) {
    writeReport(STDERR_FILENO, signal, info);
    return;
  }
  FixedText<4200> path;
  path << pathPrefix.view();
  appendTime(path, "", "");
  path << "-";
  path.number(static_cast<std::uint64_t>(getpid())) << ".txt";
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  const bool isKept = file >= 0 && writeReport(file, signal, info);
  if (file >= 0) close(file);
  if (!isKept) {  // the disk is full
    if (file >= 0) unlink(path.c_str());
    writeReport(STDERR_FILENO, signal, info);
    return;
  }
  write(STDERR_FILENO, heading.view());
  write(STDERR_FILENO, "; the report is ");
  write(STDERR_FILENO, path.view());
  write(STDERR_FILENO, "\n");
  if (!pathToRemove.view().empty()) unlink(pathToRemove.c_str());
}

pid_t currentThread() { return static_cast<pid_t>(syscall(SYS_gettid)); }

void onFatalSignal(int signal, siginfo_t* info, void*) {
  pid_t nobody = 0;
  if (reportingThread.compare_exchange_strong(nobody, currentThread())) {
    std::signal(SIGALRM, SIG_DFL);
    alarm(reportSeconds);
    keepReport(signal, *info);
  } else if (nobody != currentThread()) {
    for (;;) pause();  // another thread writes its report and then ends the process
  }
  // Pending until the handler returns; then the process ends as it would have.
  std::signal(signal, SIG_DFL);
  raise(signal);
}

[[noreturn]] void onTerminate() {
  if (const auto* type = abi::__cxa_current_exception_type()) {
    int status = 0;
    char* name = abi::__cxa_demangle(type->name(), nullptr, nullptr, &status);
    uncaughtException << (name ? name : type->name());
    try {
      throw;
    } catch (const std::exception& exception) {
      uncaughtException << ": " << exception.what();
    } catch (...) {
    }
  }
  if (previousTerminate) previousTerminate();
  std::abort();
}

}  // namespace

void CrashHandler::install(const Plan& plan) {
  heading << plan.heading;
  pathPrefix << plan.pathPrefix;
  pathToRemove << plan.pathToRemove;
  std::array<void*, 1> frame;
  backtrace(frame.data(), frame.size());  // the first call loads a library

  stack_t stack{};
  stack.ss_sp = secondStack.data();
  stack.ss_size = secondStack.size();
  sigaltstack(&stack, nullptr);
  struct sigaction action {};
  action.sa_sigaction = onFatalSignal;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (const auto& [signal, name] : fatalSignals) sigaction(signal, &action, nullptr);
  previousTerminate = std::set_terminate(onTerminate);
}

}  // namespace qf
