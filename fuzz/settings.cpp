// SPDX-License-Identifier: Apache-2.0
// The settings file, and shortcuts as they are stored elsewhere.
#include "fuzz/Checks.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "kit/QFKSharedContainerURL.h"
#include "shortcuts/MASDictionaryTransformer.h"
#include "shortcuts/ShortcutArchiveTransformer.h"
#include "tests/support/FakeHost.h"
#include "tests/support/LogCapture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  const LogCapture log;
  FakeHost host;
  const auto file = QFKSharedContainerURL::QFKMenuSettingsURL(host.fileManager);
  fuzz::check(file.has_value(), "no place for the settings");
  host.fileManager.files[*file] = Data(bytes, bytes + size);
  const QFKSharedContainer container(host.fileManager, host.userDefaults);
  QFKMenuSettingsManager settings(container, host.fileManager, host.distributedNotificationCenter);
  settings.readSettings();
  for (const std::string& key : settings.shortcutIDList()) {
    settings.updateShortcut(settings.shortcutForKey(key));
  }
  settings.setPaletteShortcut(settings.paletteShortcut());
  settings.setMenuStyle(settings.menuStyle() ^ 1);

  ShortcutArchiveTransformer().transformedValue(Value(Data(bytes, bytes + size)));
  const auto value = readPropertyList({bytes, size}, PropertyListLimits::message());
  if (value) MASDictionaryTransformer().transformedValue(*value);
  return 0;
}
