// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string_view>

#include "host/Availability.h"
#include "host/Host.h"
#include "host/Workspace.h"

namespace qf {

class BusApplications;

/// The services of a Linux desktop for one program. Main thread; one a process, kept until its end.
class LinuxHost {
 public:
  /// The texts are of static life.
  struct Program {
    std::string_view bundleIdentifier;
    std::string_view name;
    std::string_view version;
    ActivationPolicy activationPolicy;
    std::string_view engineIdentifier;  ///< of the program that cleans
  };

  /// Whether there is a desktop for windows. Asked before a host is made, which would end the
  /// process without one.
  static Availability desktop();

  /// Both arguments are kept by reference.
  LinuxHost(int& argc, char** argv, Program program);
  ~LinuxHost();

  /// Makes this process the running instance of its program; false, with a line in the log, where
  /// another one is it already, which then shows itself. Without a session bus that cannot be told,
  /// and the answer is true.
  bool registerOnlyInstance();

  /// This process among the running programs, and the way to others.
  BusApplications& applications();

  /// Made on the first call.
  Host& services();

 private:
  struct Core;
  struct Backends;

  std::unique_ptr<Core> _core;
  std::unique_ptr<Backends> _backends;
};

}  // namespace qf
