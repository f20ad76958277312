#include "platform/desktop/shortcuts/GnomeShortcuts.h"

#include <array>
#include <dlfcn.h>
#include <memory>
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
/// The key that lists the places of the user's own commands, and what stands at each.
constexpr const char* customList = "custom-keybindings";
constexpr const char* customSchema =
    "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr const char* customKey = "binding";

/// GIO's GSettings, as far as it is needed. Opaque objects stay pointers, which spares its headers.
class GSettings {
  public:
    /// The strings that are set for each key of a schema now, by the key.
    using Values = std::vector<std::pair<std::string, std::vector<std::string>>>;

    GSettings() {
        // Stays loaded: the library's threads must not lose their code at the end.
        void* library = ::dlopen("libgio-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
        isComplete_ = library && find(library, "g_settings_schema_source_get_default", source_) &&
                      find(library, "g_settings_schema_source_lookup", lookUp_) &&
                      find(library, "g_settings_schema_get_path", path_) &&
                      find(library, "g_settings_schema_list_keys", keys_) &&
                      find(library, "g_settings_schema_unref", unrefSchema_) &&
                      find(library, "g_settings_new_full", settings_) &&
                      find(library, "g_settings_get_value", value_) &&
                      find(library, "g_variant_print", print_) &&
                      find(library, "g_variant_unref", unrefValue_) &&
                      find(library, "g_object_unref", unref_) &&
                      find(library, "g_strfreev", freeAll_) && find(library, "g_free", free_);
    }

    /// `path` says where, for a schema that has no place of its own; null for one that has. Empty
    /// when there is no such schema: asking GSettings for it would end the program.
    [[nodiscard]] Values read(const char* schemaName, const char* path) const {
        void* source = isComplete_ ? source_() : nullptr;
        const Pointer schema(source ? lookUp_(source, schemaName, 1) : nullptr, unrefSchema_);
        if (!schema || (path_(schema.get()) == nullptr) != (path != nullptr)) {
            return {};
        }
        Values values;
        const Pointer settings(settings_(schema.get(), nullptr, path), unref_);
        const std::unique_ptr<char*, void (*)(char**)> keys(keys_(schema.get()), freeAll_);
        for (char** key = keys.get(); key && *key; ++key) {
            const Pointer value(value_(settings.get(), *key), unrefValue_);
            const std::unique_ptr<char, void (*)(void*)> text(print_(value.get(), 0), free_);
            values.emplace_back(*key, gvariantStrings(text.get()));
        }
        return values;
    }

  private:
    using Pointer = std::unique_ptr<void, void (*)(void*)>;

    template <typename Function>
    static bool find(void* library, const char* name, Function& function) {
        function = reinterpret_cast<Function>(::dlsym(library, name));
        return function != nullptr;
    }

    bool isComplete_ = false;
    void* (*source_)() = nullptr;
    void* (*lookUp_)(void* source, const char* name, int isRecursive) = nullptr;
    const char* (*path_)(void* schema) = nullptr;
    char** (*keys_)(void* schema) = nullptr;
    void (*unrefSchema_)(void* schema) = nullptr;
    void* (*settings_)(void* schema, void* backend, const char* path) = nullptr;
    void* (*value_)(void* settings, const char* key) = nullptr;
    char* (*print_)(void* variant, int isAnnotated) = nullptr;
    void (*unrefValue_)(void* variant) = nullptr;
    void (*unref_)(void* object) = nullptr;
    void (*freeAll_)(char** strings) = nullptr;
    void (*free_)(void* memory) = nullptr;
};

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

std::vector<Accelerator> bindings(const GSettings& settings) {
    std::vector<Accelerator> result;
    const auto add = [&](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            if (auto accelerator = gtkAccelerator(text)) {
                result.push_back(std::move(*accelerator));
            }
        }
    };
    for (const char* schema : schemas) {
        for (const auto& [key, texts] : settings.read(schema, nullptr)) {
            if (key != customList) {
                add(texts);
                continue;
            }
            for (const std::string& path : texts) {
                for (const auto& [part, binding] : isPath(path)
                                                       ? settings.read(customSchema, path.c_str())
                                                       : GSettings::Values()) {
                    add(part == customKey ? binding : std::vector<std::string>());
                }
            }
        }
    }
    return result;
}

} // namespace

DesktopShortcuts::Source gnomeShortcuts(WindowManagerName windowManager) {
    return [windowManager = std::move(windowManager),
            settings = std::shared_ptr<GSettings>()]() mutable -> std::vector<Accelerator> {
        if (!isOfGnome(windowManager())) {
            return {};
        }
        if (!settings) {
            settings = std::make_shared<GSettings>();
        }
        return bindings(*settings);
    };
}

} // namespace calmora
