// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProcessEnvironment>

#include "tests/desktop/Accessible.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {

/// The real engine and its window, driven as a person and a screen reader do.
class EngineProgram {
 public:
  /// Starts the engine that was built, or drives one that runs already; both end with the object.
  explicit EngineProgram(
      const QStringList& arguments = {},
      const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
  explicit EngineProgram(qint64 processIdentifier) : _processIdentifier(processIdentifier) {}

  ~EngineProgram();
  EngineProgram(const EngineProgram&) = delete;
  EngineProgram& operator=(const EngineProgram&) = delete;

  Program& program() { return *_program; }
  /// Of the engine on the bus; -1 for none.
  static int activationPolicy();
  static qint64 runningProcess();

  bool isShown() const { return !window().isEmpty(); }
  /// The showing node; waits for it, and throws std::runtime_error where there is none.
  Accessible node(const QString& role, const QString& name) const;
  bool has(const QString& role, const QString& name) const;
  bool hasText(const QString& part) const;  ///< in any showing label
  void click(const QString& role, const QString& name) const;
  void showPage(const QString& title) const { click("list item", title); }
  /// Waits for the question whether to remove something, whose default is not to, and agrees.
  void confirmRemoval() const;
  /// Puts the text into the field, as typed.
  void type(const QString& fieldName, const QString& text) const;
  std::vector<Accessible> showingNodes() const;
  /// The widget that has the keyboard, never an item in it.
  std::optional<Accessible> focused() const;
  QString window() const { return windowOf(_processIdentifier); }

 private:
  std::unique_ptr<Program> _program;
  qint64 _processIdentifier;
};

namespace state {
inline constexpr int checked = 4, focusable = 11, focused = 12, selected = 23;
}

}  // namespace qf::desktop
