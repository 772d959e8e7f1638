// SPDX-License-Identifier: Apache-2.0
// Desktop entries of any program.
#include "fuzz/Checks.h"
#include "hosts/linux/desktop/DesktopEntry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  const auto entry = qf::DesktopEntry::parse(text, "/usr/share/applications/a.desktop");
  if (entry) entry->commandLine();
  return 0;
}
