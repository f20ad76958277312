#include "platform/desktop/shortcuts/GSettings.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"
#include "support/LoadedLibrary.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calmora {
namespace {

constexpr std::array schemas{
    "org.gnome.desktop.wm.keybindings",     "org.gnome.mutter.keybindings",
    "org.gnome.mutter.wayland.keybindings", "org.gnome.settings-daemon.plugins.media-keys",
    "org.gnome.shell.keybindings",
};
/// The key that lists the paths of the user's own commands, and the schema at each.
constexpr const char* customList = "custom-keybindings";
constexpr const char* customSchema =
    "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr const char* customKey = "binding";

/// Whether a window manager takes its bindings from GNOME's settings.
bool isOfGnome(std::string_view name) {
    return name == "GNOME Shell" || name == "Metacity" ||
           (name.starts_with("Mutter") && name.find("Muffin") == std::string_view::npos);
}

/// Source: g_settings_new_with_path(), which takes nothing else.
bool isPath(std::string_view text) {
    return text.starts_with('/') && text.ends_with('/') &&
           text.find("//") == std::string_view::npos;
}

std::vector<Accelerator> bindings(ReadGSettings& readInto) {
    const auto read = [&](const char* schema, const char* path) {
        SettingsValues values;
        readInto(schema, path, values);
        return values;
    };
    std::vector<Accelerator> result;
    const auto add = [&](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            if (auto accelerator = gtkAccelerator(text)) {
                result.push_back(std::move(*accelerator));
            }
        }
    };
    for (const char* schema : schemas) {
        for (const auto& [key, texts] : read(schema, nullptr)) {
            if (key != customList) {
                add(texts);
                continue;
            }
            for (const std::string& path : texts) {
                for (const auto& [part, binding] :
                     isPath(path) ? read(customSchema, path.c_str()) : SettingsValues()) {
                    add(part == customKey ? binding : std::vector<std::string>());
                }
            }
        }
    }
    return result;
}

} // namespace

DesktopShortcuts::Source gnomeShortcuts(WindowManagerName windowManager) {
    return [windowManager = std::move(windowManager)]() -> std::vector<Accelerator> {
        if (!isOfGnome(windowManager())) {
            return {};
        }
        auto* read = functionIn<ReadGSettings>(loadedLibrary("gsettings"), readGSettingsName);
        return read ? bindings(*read) : std::vector<Accelerator>();
    };
}

} // namespace calmora
