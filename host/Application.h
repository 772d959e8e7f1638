// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// Receives the events of the application's life cycle from the run loop.
class ApplicationDelegate {
 public:
  virtual ~ApplicationDelegate() = default;
  virtual void applicationWillFinishLaunching() = 0;
  virtual void applicationDidFinishLaunching() = 0;
  virtual void applicationWillTerminate() = 0;
  /// The person started the program again; this process continues in the place of the new one.
  virtual void applicationDidReopen() = 0;
};

/// The process as the platform runs it. Main thread.
class Application {
 public:
  virtual ~Application() = default;
  /// Runs the main loop until `terminate`; returns the process's exit code.
  virtual int run(ApplicationDelegate& delegate) = 0;
  /// Ends the run loop after the current event.
  virtual void terminate() = 0;
};

}  // namespace qf
