// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVariantMap>
#include <chrono>
#include <optional>
#include <string>

namespace qf {

// What travels beside an event and its answer (docs/protocol.md, "Hints"). A hint that is missing,
// not known or of another type is left out.

/// Beside an event.
struct EventHints {
  /// The clock that all processes of a machine share: CLOCK_MONOTONIC.
  using Clock = std::chrono::steady_clock;

  /// After it the receiver leaves everything alone.
  std::optional<Clock::time_point> deadline = {};
  /// `Pasteboard::contentsIdentifier` of the contents that the command is meant for.
  std::optional<std::string> clipboard = {};

  static EventHints fromMap(const QVariantMap& map);
  QVariantMap toMap() const;
};

/// Beside an answer.
struct AnswerHints {
  enum class Outcome {
    unknown,
    cleaned,
    unchanged,     ///< the cleaner left the text as it was; the clipboard is untouched
    refused,       ///< the receiver told the person why
    late,          ///< the deadline had passed
    otherContents  ///< the clipboard's contents were others
  };

  Outcome outcome = Outcome::unknown;
  /// `Pasteboard::contentsIdentifier` of what the receiver put there.
  std::optional<std::string> clipboard = {};
  /// What the person was told of a refusal, in English.
  std::optional<std::string> reason = {};

  static AnswerHints fromMap(const QVariantMap& map);
  QVariantMap toMap() const;
};

}  // namespace qf
