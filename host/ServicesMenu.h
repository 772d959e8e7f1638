// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace qf {

class Pasteboard;

/// What other applications may ask this one to do with the data on a pasteboard; it is null where
/// they named one that is not there. A message may put an error text there for the one who asked.
class ServicesProvider {
 public:
  virtual ~ServicesProvider() = default;
  virtual void doPaletteCleaner(Pasteboard* pasteboard, const std::string& userData,
                                std::optional<std::string>& error) = 0;
  virtual void cleanText(Pasteboard* pasteboard, const std::string& userData,
                         std::optional<std::string>& error) = 0;
};

/// The system's list of services. Main thread; requests come from the run loop.
class ServicesMenu {
 public:
  virtual ~ServicesMenu() = default;
  /// Offers the provider's messages from now on; it outlives this, or is replaced by null.
  virtual void setServicesProvider(ServicesProvider* provider) = 0;
};

}  // namespace qf
