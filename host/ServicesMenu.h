// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace qf {

class Pasteboard;

/// Operations that other applications may request for the data on a pasteboard, which is null when
/// they named an unknown one. A message may set an error text for the caller.
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
  /// Offers the provider's messages from now on. The provider outlives this, or null replaces it.
  virtual void setServicesProvider(ServicesProvider* provider) = 0;
};

}  // namespace qf
