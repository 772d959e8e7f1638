// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace qf {

/// A short modal message. Main thread.
class Alert {
 public:
  struct Message {
    std::string messageText;
    std::string informativeText;
    std::string buttonTitle;
  };

  virtual ~Alert() = default;
  /// Shows the message in the critical style, modal for the whole process, and returns at once.
  /// `closed` runs from the run loop after the person has closed it.
  virtual void runCritical(const Message& message, std::function<void()> closed) = 0;
};

}  // namespace qf
