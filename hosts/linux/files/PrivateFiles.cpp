// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/PrivateFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

namespace qf {
namespace {

constexpr off_t mostBytes = off_t{256} << 20;

class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : _number(number) {}
  ~FileDescriptor() {
    if (_number >= 0) ::close(_number);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int get() const { return _number; }
  bool isOpen() const { return _number >= 0; }

 private:
  int _number;
};

Error failure(const char* attempt, const std::filesystem::path& path, int reason) {
  return {std::string(attempt) + " " + path.string() + ": " +
          std::generic_category().message(reason)};
}

bool writeAll(const FileDescriptor& file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.get(), bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

std::optional<Error> createPrivateFolder(const std::filesystem::path& path) {
  std::filesystem::path made;
  for (const auto& component : path) {
    made /= component;
    if (::mkdir(made.c_str(), 0700) == 0 || errno == EEXIST) continue;
    // A folder on the way may forbid making one and yet hold the next.
    const int reason = errno;
    std::error_code unknown;
    if (!std::filesystem::is_directory(made, unknown))
      return failure("cannot create the folder", path, reason);
  }
  std::error_code unknown;
  if (!std::filesystem::is_directory(path, unknown))
    return failure("cannot create the folder", path, ENOTDIR);
  return std::nullopt;
}

std::optional<Data> readRegularFile(const std::filesystem::path& path) {
  // Without O_NONBLOCK a pipe under that name would make the caller wait for its writer.
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
      status.st_size > mostBytes)
    return std::nullopt;
  Data bytes(static_cast<std::size_t>(status.st_size));
  std::size_t length = 0;
  for (;;) {
    if (length == bytes.size()) bytes.resize(length + 4096);  // it may have grown meanwhile
    const ssize_t count = ::read(file.get(), bytes.data() + length, bytes.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length > static_cast<std::size_t>(mostBytes)) return std::nullopt;
  }
  bytes.resize(length);
  return bytes;
}

std::optional<Error> replaceFile(const std::filesystem::path& path,
                                 std::span<const std::uint8_t> bytes) {
  std::error_code isNew;
  auto target = std::filesystem::canonical(path, isNew);
  if (isNew) target = path;
  struct stat old {};
  const bool replaces = ::stat(target.c_str(), &old) == 0;
  // A new name needs no permission of the old file: one that was locked against writing stays so.
  if (replaces && ::access(target.c_str(), W_OK) != 0) return failure("cannot write", path, errno);
  if (replaces && !S_ISREG(old.st_mode)) return failure("cannot write", path, EINVAL);

  std::string temporary = target.string() + ".XXXXXX";
  const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));  // made with 0600
  if (!file.isOpen()) return failure("cannot write", path, errno);
  // Synced first, or a power cut could leave the new name on an empty file.
  if (writeAll(file, bytes) && (!replaces || ::fchmod(file.get(), old.st_mode & 07777) == 0) &&
      ::fsync(file.get()) == 0 && std::rename(temporary.c_str(), target.c_str()) == 0)
    return std::nullopt;
  const int reason = errno;
  ::unlink(temporary.c_str());
  return failure("cannot write", path, reason);
}

Result<std::filesystem::path> putAside(const std::filesystem::path& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path aside = path.string() + ".damaged";
  for (int number = 2; fs::exists(fs::symlink_status(aside, error)); ++number) {
    aside = path.string() + ".damaged-" + std::to_string(number);
  }
  fs::rename(path, aside, error);
  if (error) return failure("cannot put aside", path, error.value());
  return aside;
}

}  // namespace qf
