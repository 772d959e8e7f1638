// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "engine/program/EngineWindow.h"
#include "host/Workspace.h"

namespace qf {

class QFWindow;

/// Builds the window when it is first asked for. While it is open this process counts as one with
/// windows, else as one in the background. Main thread.
class WindowKeeper final : public QObject, public EngineWindow {
  Q_OBJECT

 public:
  using Make = std::function<std::unique_ptr<QFWindow>()>;
  using SetPolicy = std::function<void(ActivationPolicy)>;

  WindowKeeper(Make make, SetPolicy setPolicy);
  ~WindowKeeper() override;

  void show() override { showSoon(false); }
  void showPreferences() override { showSoon(true); }

 private:
  void showSoon(bool preferences);
  QFWindow& window();

  Make _make;
  SetPolicy _setPolicy;
  std::unique_ptr<QFWindow> _window;
};

}  // namespace qf
