// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/GSettings.h"
#include "support/Owned.h"

#include <algorithm>
#include <gio/gio.h>

namespace {

using calmora::Owned;

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

/// Null without such a schema at this place; GSettings would end the program for one.
Owned<GSettingsSchema, g_settings_schema_unref> findSchema(const char* name, const char* path) {
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    Owned<GSettingsSchema, g_settings_schema_unref> schema(
        source ? g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
    if (schema && (g_settings_schema_get_path(schema.get()) == nullptr) != (path != nullptr)) {
        schema.reset();
    }
    return schema;
}

} // namespace

extern "C" [[gnu::visibility("default")]] void
calmoraReadGSettings(const char* schemaName, const char* path, calmora::SettingsValues& values) {
    const auto schema = findSchema(schemaName, path);
    if (!schema) {
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

extern "C" [[gnu::visibility("default")]] bool calmoraMayWriteGSettings(const char* schemaName,
                                                                        const char* key) {
    const auto schema = findSchema(schemaName, nullptr);
    if (!schema || g_settings_schema_has_key(schema.get(), key) == FALSE) {
        return false;
    }
    const Owned<GSettings, g_object_unref> settings(
        g_settings_new_full(schema.get(), nullptr, nullptr));
    return g_settings_is_writable(settings.get(), key) != FALSE;
}

extern "C" [[gnu::visibility("default")]] bool
calmoraRemoveFromGSettings(const char* schemaName, const char* key,
                           const std::vector<std::string>& strings) {
    const auto schema = findSchema(schemaName, nullptr);
    if (!schema || g_settings_schema_has_key(schema.get(), key) == FALSE) {
        return true;
    }
    const Owned<GSettings, g_object_unref> settings(
        g_settings_new_full(schema.get(), nullptr, nullptr));
    const Owned<GVariant, g_variant_unref> value(g_settings_get_value(settings.get(), key));
    std::vector<std::string> list = stringsIn(*value);
    const auto removed = std::erase_if(list, [&](const std::string& entry) {
        return std::ranges::find(strings, entry) != strings.end();
    });
    if (removed == 0) {
        return true;
    }
    std::vector<const char*> remaining;
    for (const std::string& entry : list) {
        remaining.push_back(entry.c_str());
    }
    remaining.push_back(nullptr);
    const bool isSet = g_settings_set_strv(settings.get(), key, remaining.data()) != FALSE;
    g_settings_sync();
    return isSet;
}
