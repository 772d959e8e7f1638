// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/LocalCrashReporter.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include "foundation/Log.h"
#include "hosts/linux/files/CrashHandler.h"
#include "hosts/linux/files/PrivateFiles.h"

namespace qf {
namespace {

constexpr std::size_t mostReports = 10;

std::vector<std::filesystem::path> reportsNewestFirst(const std::filesystem::path& folder) {
  using Report = std::pair<std::filesystem::file_time_type, std::filesystem::path>;
  std::vector<Report> reports;
  std::error_code unknown;
  for (const auto& entry : std::filesystem::directory_iterator(folder, unknown)) {
    const auto name = entry.path().filename().string();
    if (name.starts_with("crash-") && name.ends_with(".txt"))
      reports.emplace_back(entry.last_write_time(unknown), entry.path());
  }
  std::ranges::sort(reports, std::greater());
  std::vector<std::filesystem::path> paths;
  paths.reserve(reports.size());
  for (auto& report : reports) paths.push_back(std::move(report.second));
  return paths;
}

}  // namespace

LocalCrashReporter::LocalCrashReporter(std::string program, std::string version,
                                       std::optional<std::filesystem::path> stateHome)
    : _program(std::move(program)), _version(std::move(version)), _folder(std::move(stateHome)) {
  if (_folder) *_folder /= "quenfold";
}

void LocalCrashReporter::start() {
  CrashHandler::Plan plan;
  plan.heading = _program + " " + _version + " crashed";
  const auto failure = _folder ? createPrivateFolder(*_folder) : Error{"there is no home folder"};
  if (failure) {
    log("Crash reports cannot be kept: " + failure->localizedDescription);
  } else {
    plan.pathPrefix = (*_folder / ("crash-" + _program + "-")).string();
    auto reports = reportsNewestFirst(*_folder);
    std::error_code ignored;
    for (; reports.size() > mostReports; reports.pop_back())
      std::filesystem::remove(reports.back(), ignored);
    if (reports.size() == mostReports) plan.pathToRemove = reports.back().string();
  }
  CrashHandler::install(plan);
}

}  // namespace qf
