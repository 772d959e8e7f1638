// SPDX-License-Identifier: Apache-2.0
// Qt's words signals and slots are names of fields here.
#define QT_NO_KEYWORDS
#include <gio/gio.h>

#include <memory>
#include <string>
#include <string_view>

#include "hosts/linux/keys/DesktopShortcuts.h"

namespace qf {
namespace {

template <auto release>
struct Releaser {
  template <class T>
  void operator()(T* object) const {
    release(object);
  }
};
using Schema = std::unique_ptr<GSettingsSchema, Releaser<g_settings_schema_unref>>;
using Settings = std::unique_ptr<GSettings, Releaser<g_object_unref>>;
using Strings = std::unique_ptr<gchar*, Releaser<g_strfreev>>;
using Variant = std::unique_ptr<GVariant, Releaser<g_variant_unref>>;

constexpr const char* mediaKeys = "org.gnome.settings-daemon.plugins.media-keys";
constexpr const char* customKeybinding =
    "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr const char* schemas[] = {
    "org.gnome.desktop.wm.keybindings",
    "org.gnome.shell.keybindings",
    "org.gnome.mutter.keybindings",
    "org.gnome.mutter.wayland.keybindings",
    "org.gnome.settings-daemon.plugins.media-keys",
};

bool isRunning() {
  // The schemas are installed on other desktops too, where nobody answers to their shortcuts.
  const char* desktops = g_getenv("XDG_CURRENT_DESKTOP");
  const Strings names(g_strsplit(desktops ? desktops : "", ":", -1));
  return g_strv_contains(names.get(), "GNOME");
}

Schema schemaNamed(const char* name) {
  GSettingsSchemaSource* source = g_settings_schema_source_get_default();
  return Schema(source ? g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
}

void add(const char* text, std::vector<Accelerator>& shortcuts) {
  if (const auto accelerator = acceleratorFromGtkText(text)) shortcuts.push_back(*accelerator);
}

/// Adds what a setting holds that is written as a shortcut: a text, or several.
void addValue(GVariant* value, std::vector<Accelerator>& shortcuts) {
  if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
    add(g_variant_get_string(value, nullptr), shortcuts);
  } else if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) {
    const Strings texts(g_variant_dup_strv(value, nullptr));
    for (gchar** text = texts.get(); *text != nullptr; ++text) add(*text, shortcuts);
  }
}

void addSettings(const char* name, const char* path, std::vector<Accelerator>& shortcuts) {
  const Schema schema = schemaNamed(name);
  if (!schema) return;
  const Settings settings(g_settings_new_full(schema.get(), nullptr, path));
  const Strings keys(g_settings_schema_list_keys(schema.get()));
  for (gchar** key = keys.get(); *key != nullptr; ++key) {
    const Variant value(g_settings_get_value(settings.get(), *key));
    addValue(value.get(), shortcuts);
  }
}

void addCustomKeybindings(std::vector<Accelerator>& shortcuts) {
  const Schema schema = schemaNamed(mediaKeys);
  if (!schema || !g_settings_schema_has_key(schema.get(), "custom-keybindings")) return;
  const Settings settings(g_settings_new_full(schema.get(), nullptr, nullptr));
  const Strings paths(g_settings_get_strv(settings.get(), "custom-keybindings"));
  for (gchar** path = paths.get(); *path != nullptr; ++path) {
    const std::string_view text(*path);
    if (text.starts_with('/') && text.ends_with('/'))
      addSettings(customKeybinding, *path, shortcuts);
  }
}

}  // namespace

DesktopShortcuts gnomeShortcuts() {
  if (!isRunning()) return std::nullopt;
  std::vector<Accelerator> shortcuts;
  for (const char* schema : schemas) addSettings(schema, nullptr, shortcuts);
  addCustomKeybindings(shortcuts);
  return shortcuts;
}

}  // namespace qf
