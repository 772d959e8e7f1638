// SPDX-License-Identifier: Apache-2.0
// Mixed use of the real programs for a while: hot keys in two editors, tray menu, palette, changed
// settings and engines that end. Every result is checked, and what the processes hold must not
// grow.
//
//   soak MINUTES
#include <linux/input-event-codes.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QTextStream>
#include <csignal>
#include <exception>
#include <random>

#include "host/EventState.h"
#include "tests/desktop/Agent.h"
#include "tests/desktop/Keyboard.h"
#include "tests/desktop/OtherProcess.h"
#include "tests/desktop/ProcessUsage.h"

namespace {

using namespace qf;
using namespace qf::desktop;

constexpr auto limit = 60s;
constexpr std::uint64_t keyJ = 38, keyK = 40;

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

class Soak {
 public:
  Soak() {
    _other.settings.readSettings();
    _shortcut = _other.settings.addShortcut();
    setHotKey();
    _agent.emplace();
    _agent->pick("Show Palette");
    if (!until([this] { return !windowOf(process()).isEmpty(); })) {
      throw std::runtime_error("no palette");
    }
  }

  /// Whether everything came out right, and nothing grew.
  bool run(std::chrono::minutes duration) {
    const QDeadlineTimer end(duration);
    const auto quarter = std::chrono::milliseconds(duration) * 3 / 4;
    std::optional<ProcessUsage> first;
    for (int round = 1; !end.hasExpired() && _agent->program().isRunning(); ++round) {
      for (const char* command : {"mousepad", "featherpad"}) {
        Editor editor(command, "New text");  // alone, so that it has the input
        useIn(editor);
      }
      changeSettings();
      if (round % 5 == 0) endEngine();
      if (!first && end.remainingTime() < quarter.count()) first = ProcessUsage::of(process());
      out() << "round " << round << ": " << _right << " of " << _asked << " right; "
            << ProcessUsage::of(process()).text() << Qt::endl;
    }
    if (!_agent->program().isRunning()) return fault("the agent ended");
    const QString growth = first ? ProcessUsage::of(process()).growthSince(*first) : "";
    if (!growth.isEmpty()) return fault(growth);
    if (printed().contains("Büro")) return fault("a text of an editor is in the log");
    out() << _right << " of " << _asked << " came out right" << Qt::endl;
    return _asked > 0 && _right == _asked;
  }

  QString printed() { return _agent ? _agent->program().printed() : QString(); }

 private:
  qint64 process() { return _agent->program().processIdentifier(); }

  bool fault(const QString& what) {
    out() << "FAULT: " << what << Qt::endl;
    return false;
  }

  void useIn(Editor& editor) {
    const QString text = newText();
    becomes("hot key", editor, text, swapped(text), "", [this] {
      _keyboard.press(
          {KEY_LEFTCTRL, KEY_LEFTALT, _usesJ ? std::uint16_t{KEY_J} : std::uint16_t{KEY_K}});
    });
    becomes("menu", editor, text, text.toUpper(), "", [this] { pick("Upper Case"); });
    becomes("menu with Shift", editor, text, text, text.toUpper(),
            [this] { pick("Upper Case", "shift"); });
    becomes("palette", editor, text, text.toLower(), "", [this] { clickInPalette("Lower Case"); });
    clipboard::setText(text);
    pick("Upper Case", "alt");
    judge("clipboard", until([&] { return clipboard::text() == text.toUpper(); }, limit));
  }

  /// Does it with the whole text selected, and looks at the editor, and at the clipboard where a
  /// text is given for it.
  void becomes(const QString& what, Editor& editor, const QString& before, const QString& after,
               const QString& onClipboard, const std::function<void()>& use) {
    editor.reset(before);
    clipboard::setText("old");
    use();
    judge(what, until(
                    [&] {
                      return editor.text() == after &&
                             (onClipboard.isEmpty() || clipboard::text() == onClipboard);
                    },
                    limit));
  }

  void judge(const QString& what, bool isRight) {
    ++_asked;
    if (isRight) {
      ++_right;
    } else {
      fault(what + " in request " + QString::number(_asked));
    }
  }

  void pick(const QString& cleaner, const QString& heldKey = {}) {
    _agent->openMenu(heldKey);
    click(cleaner, "menu item");
  }

  void clickInPalette(const QString& cleaner) { click(cleaner, "list item"); }

  // The palette shows the same names as the menu.
  void click(const QString& name, const QString& role) {
    std::optional<Accessible> shown;
    if (until([&] { return (shown = Accessible::showing(process(), name, role)).has_value(); })) {
      mouse::click(shown->screenExtents().center());
    }
  }

  void changeSettings() {
    _usesJ = !_usesJ;
    setHotKey();
    _other.settings.setMenuStyle(_usesJ);
    Agent::services();  // it answers in the order in which it is told
  }

  void setHotKey() {
    _other.settings.readSettings();
    QFKShortcutActionItem item = *_other.settings.shortcutForKey(_shortcut);
    item.keycode = _usesJ ? keyJ : keyK;
    item.modifiers = modifier::control | modifier::option;
    item.type = 0;
    item.typeValue = "#SWAPCASE";
    _other.settings.setShortcut(item);
  }

  // The next request starts another one.
  void endEngine() {
    auto* bus = QDBusConnection::sessionBus().interface();
    for (const QString& engine : engines()) {
      ::kill(static_cast<pid_t>(bus->servicePid(engine).value()), SIGTERM);
    }
    until([] { return engines().isEmpty(); });
  }

  // Another one each time, of up to some 20 kB.
  QString newText() {
    static const QStringList words{"Neues", "aus",  "dem", "Büro", "naïve",
                                   "Żółw",  "2024", "a-b", "—",    "x"};
    QString text = QString("Text %1:").arg(_asked);
    for (auto count = _random() % (_asked % 5 == 0 ? 4000 : 40); count > 0; --count) {
      text += (_random() % 12 == 0 ? '\n' : ' ') +
              words[static_cast<int>(_random() % static_cast<unsigned>(words.size()))];
    }
    return text + '\n';
  }

  static QString swapped(QString text) {
    for (QChar& c : text) c = c.isUpper() ? c.toLower() : c.toUpper();
    return text;
  }

  std::mt19937 _random{7};
  OtherProcess _other;
  std::string _shortcut;
  bool _usesJ = false;
  Keyboard _keyboard;
  std::optional<Agent> _agent;
  int _asked = 0;
  int _right = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const int minutes = std::max(1, QCoreApplication::arguments().value(1, "25").toInt());
  try {
    Soak soak;
    if (soak.run(std::chrono::minutes(minutes))) return 0;
    out() << "The agent said:\n" << soak.printed() << Qt::endl;
  } catch (const std::exception& fault) {
    QTextStream(stderr) << fault.what() << Qt::endl;
  }
  return 1;
}
