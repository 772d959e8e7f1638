// SPDX-License-Identifier: Apache-2.0
#include "tests/engine/window/EngineProgram.h"

#include <gtest/gtest.h>

#include <QDBusInterface>
#include <csignal>
#include <stdexcept>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"

namespace qf::desktop {
namespace {

QVariant applicationProperty(const char* name) {
  return QDBusInterface("org.quenfold.Quenfold", "/org/quenfold/Application",
                        "org.quenfold.Application1")
      .property(name);
}

void collect(const Accessible& node, std::vector<Accessible>& found) {
  for (const Accessible& child : node.children()) {
    if (!child.isShowing()) continue;
    found.push_back(child);
    collect(child, found);
  }
}

/// The engine's start brings the agent along; tests that want one start their own.
struct AgentSwitchedOff : testing::EmptyTestEventListener {
  AgentSwitchedOff() { testing::UnitTest::GetInstance()->listeners().Append(this); }
  void OnTestStart(const testing::TestInfo&) override {
    put(autostartEntry, "[Desktop Entry]\nHidden=true\n");
  }
};
auto* const agentSwitchedOff = new AgentSwitchedOff;  // the tests own it

}  // namespace

EngineProgram::EngineProgram(const QStringList& arguments, const QProcessEnvironment& environment)
    : _program(std::make_unique<Program>(Agent::builtProgram("quenfold"), arguments, environment)),
      _processIdentifier(_program->processIdentifier()) {}

EngineProgram::~EngineProgram() {
  if (_program) return;
  ::kill(static_cast<pid_t>(_processIdentifier), SIGTERM);
  until([] { return runningProcess() <= 0; });
}

int EngineProgram::activationPolicy() {
  const QVariant policy = applicationProperty("ActivationPolicy");
  return policy.isValid() ? policy.toInt() : -1;
}

qint64 EngineProgram::runningProcess() {
  return applicationProperty("ProcessIdentifier").toLongLong();
}

std::vector<Accessible> EngineProgram::showingNodes() const {
  std::vector<Accessible> found;
  if (const auto application = Accessible::application(_processIdentifier)) {
    collect(*application, found);
  }
  return found;
}

std::optional<Accessible> EngineProgram::focused() const {
  for (const Accessible& node : showingNodes()) {
    // A view's current item says so too, wherever the keyboard is.
    const QString role = node.role();
    if (role == "list item" || role == "table cell" || role == "tree item") continue;
    if (node.hasState(state::focused)) return node;
  }
  return std::nullopt;
}

bool EngineProgram::has(const QString& role, const QString& name) const {
  for (const Accessible& node : showingNodes()) {
    if (node.name() == name && node.role() == role) return true;
  }
  return false;
}

bool EngineProgram::hasText(const QString& part) const {
  for (const Accessible& node : showingNodes()) {
    if (node.role() == "label" && node.name().contains(part)) return true;
  }
  return false;
}

Accessible EngineProgram::node(const QString& role, const QString& name) const {
  std::optional<Accessible> found;
  const bool isThere = until([&] {
    for (const Accessible& node : showingNodes()) {
      if (node.name() == name && node.role() == role) found = node;
    }
    return found.has_value();
  });
  if (!isThere) {
    throw std::runtime_error("no " + role.toStdString() + " \"" + name.toStdString() + '"');
  }
  return *found;
}

void EngineProgram::click(const QString& role, const QString& name) const {
  mouse::click(node(role, name).screenExtents().center());
}

void EngineProgram::confirmRemoval() const {
  EXPECT_TRUE(until([&] { return focused() && focused()->name() == "Cancel"; }));
  click("push button", "Remove");  // the question's comes after the page's
}

void EngineProgram::type(const QString& fieldName, const QString& text) const {
  click("text", fieldName);
  keyboard::press("ctrl+a");
  output("xdotool", {"type", "--clearmodifiers", text});
}

}  // namespace qf::desktop
