// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/AccessibilityElement.h"
#include "hosts/linux/accessibility/bus/AtspiBus.h"
#include "hosts/linux/accessibility/elements/AtspiCleaning.h"
#include "hosts/linux/accessibility/elements/AtspiLastFailure.h"
#include "hosts/linux/accessibility/elements/AtspiWindows.h"

namespace qf {

class Pasteboard;
class Workspace;

/// Other applications as they show themselves on the accessibility bus (AT-SPI 2), spoken over
/// D-Bus alone. Outlives its elements.
class AtspiAccessibility : public Accessibility {
 public:
  /// Needs an application object; `pasteboard` is the one that menus copy to. Both outlive this.
  AtspiAccessibility(Pasteboard& pasteboard, const Workspace& workspace, CleanRequest& request);

  /// Besides the bus this tells why the application that was tried last could not be reached.
  Availability availability() const override;
  /// Called once at the end of each request in which something was tried.
  void setOutcomeHandler(std::function<void(const Availability&)> handler) {
    _lastFailure.setHandler(std::move(handler));
  }
  /// Whether the whole text may be taken where nothing is selected; asked each time. Without this
  /// it may.
  void setTakesWholeTexts(std::function<bool()> takesWholeTexts) {
    _cleaning.takesWholeTexts = std::move(takesWholeTexts);
  }
  /// Called with a sentence after the whole text was taken, and replaced.
  void setWholeTextHandler(std::function<void(const std::string&)> handler) {
    _cleaning.wholeTextHandler = std::move(handler);
  }
  /// Tells the person what is wrong with the bus, and what helps.
  void setPromptHandler(std::function<void(const Availability&)> handler) {
    _promptHandler = std::move(handler);
  }
  AccessibilityElementRef systemWideElement() override;
  AccessibilityElementRef applicationElement(std::int32_t processIdentifier) override;
  /// Every process on the bus may use it. Without the bus `prompt` has the person told.
  bool isProcessTrusted(bool prompt) override;

  /// How many questions applications have been asked so far.
  std::uint64_t questionCount() const { return _bus.questionCount(); }

 private:
  Pasteboard& _pasteboard;
  const Workspace& _workspace;
  AtspiBus _bus;
  AtspiWindows _windows;
  AtspiLastFailure _lastFailure;
  AtspiCleaning _cleaning;
  std::function<void(const Availability&)> _promptHandler;
};

}  // namespace qf
