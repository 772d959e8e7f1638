// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// Told of the application's life by the run loop.
class ApplicationDelegate {
 public:
  virtual ~ApplicationDelegate() = default;
  virtual void applicationWillFinishLaunching() = 0;
  virtual void applicationDidFinishLaunching() = 0;
  virtual void applicationWillTerminate() = 0;
  /// The person started the program once more, and this process goes on instead.
  virtual void applicationDidReopen() = 0;
};

/// The process as the platform runs it. Main thread.
class Application {
 public:
  virtual ~Application() = default;
  /// Runs the main loop until `terminate`; answers the process's exit code.
  virtual int run(ApplicationDelegate& delegate) = 0;
  /// Ends the run loop once the present event is handled.
  virtual void terminate() = 0;
};

}  // namespace qf
