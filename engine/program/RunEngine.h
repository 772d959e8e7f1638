// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

enum class FirstShown {
  nothing,  ///< runs in the background until its window is asked for
  window  ///< unless the defaults of docs/files.md say otherwise; an instance that runs takes over
};

/// The engine as one of this session's programs, until it is told to quit. Answers the exit code.
int runEngine(int argc, char** argv, FirstShown firstShown);

}  // namespace qf
