// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// What AT_SPI_BUS_ADDRESS says in a process that does without Qt's own accessibility: the address
/// of no bus.
inline constexpr char noAccessibilityBus[] = "unix:path=/dev/null/no-accessibility-bus";

/// Keeps Qt from waiting for an accessibility service that does not answer: it asks twice while the
/// application object is made, 25 s each. Waits for the service at most 1 s. To be called before
/// the application object is made; without an answer the own windows of this process, and of those
/// that it starts, are not shown to screen readers.
void shunHungAccessibility();

}  // namespace qf
