// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/GSettings.h"

#include <gio/gio.h>
#include <memory>

namespace {

template <auto release>
struct Release {
    template <typename Type>
    void operator()(Type* object) const {
        release(object);
    }
};

template <typename Type, auto release>
using Owned = std::unique_ptr<Type, Release<release>>;

/// The strings in a value that is a string or a list of strings; none in any other.
std::vector<std::string> stringsIn(GVariant& value) {
    if (g_variant_is_of_type(&value, G_VARIANT_TYPE_STRING)) {
        return {g_variant_get_string(&value, nullptr)};
    }
    if (!g_variant_is_of_type(&value, G_VARIANT_TYPE_STRING_ARRAY)) {
        return {};
    }
    gsize count = 0;
    const Owned<const gchar*, g_free> strings(g_variant_get_strv(&value, &count));
    return {strings.get(), strings.get() + count};
}

} // namespace

extern "C" [[gnu::visibility("default")]] void
calmoraReadGSettings(const char* schemaName, const char* path, calmora::SettingsValues& values) {
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    const Owned<GSettingsSchema, g_settings_schema_unref> schema(
        source ? g_settings_schema_source_lookup(source, schemaName, TRUE) : nullptr);
    // Without this check GSettings would end the program.
    if (!schema || (g_settings_schema_get_path(schema.get()) == nullptr) != (path != nullptr)) {
        return;
    }
    const Owned<GSettings, g_object_unref> settings(
        g_settings_new_full(schema.get(), nullptr, path));
    const Owned<gchar*, g_strfreev> keys(g_settings_schema_list_keys(schema.get()));
    for (gchar** key = keys.get(); *key; ++key) {
        const Owned<GVariant, g_variant_unref> value(g_settings_get_value(settings.get(), *key));
        values.emplace_back(*key, stringsIn(*value));
    }
}
