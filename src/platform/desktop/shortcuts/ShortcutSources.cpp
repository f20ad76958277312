// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/ShortcutSources.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/shortcuts/GSettings.h"
#include "platform/linux/xdg/TextFile.h"
#include "support/LoadedLibrary.h"

#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QList>

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace calmora {
namespace {

/// How long each question may take.
constexpr int milliseconds = 150;

/// Asks a program that is not started for it.
QDBusPendingCall ask(const QDBusConnection& bus, QDBusMessage call) {
    call.setAutoStartService(false);
    return bus.asyncCall(call, milliseconds);
}

QDBusPendingCall askKde(const QDBusConnection& bus, const QString& path, const char* interface,
                        const char* method) {
    return ask(bus, methodCall("org.kde.kglobalaccel", path, interface, method));
}

/// Appends the keys of one program's shortcuts; the surplus of a list that is too long is left out.
void readKeys(const QDBusArgument& infos, std::vector<Accelerator>& result) {
    infos.beginArray();
    for (qsizetype read = 0; !infos.atEnd() && read < longestList; ++read) {
        infos.beginStructure();
        constexpr int names = 6;
        QString name;
        for (int i = 0; i < names; ++i) {
            infos >> name;
        }
        QList<int> keys;
        static_cast<void>(readBounded(infos, keys));
        infos.endStructure(); // What was not read, the default keys, is passed over.
        for (const int key : std::as_const(keys)) {
            if (auto accelerator = qtAccelerator(static_cast<std::uint32_t>(key))) {
                result.push_back(std::move(*accelerator));
            }
        }
    }
    infos.endArray();
}

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

DesktopShortcuts::Source openboxShortcuts(WindowManagerName windowManager,
                                          std::vector<std::filesystem::path> files) {
    return [windowManager = std::move(windowManager),
            files = std::move(files)]() -> std::vector<Accelerator> {
        if (windowManager() != "Openbox") {
            return {};
        }
        for (const std::filesystem::path& path : files) {
            if (const auto text = readTextFile(path)) {
                return openboxAccelerators(*text);
            }
        }
        return {};
    };
}

DesktopShortcuts::Source kdeShortcuts(const QDBusConnection& bus) {
    return [bus] {
        QDBusPendingCall components =
            askKde(bus, "/kglobalaccel", "org.kde.KGlobalAccel", "allComponents");
        components.waitForFinished();
        std::vector<QDBusPendingCall> calls;
        const auto paths = readArgument<QList<QDBusObjectPath>>(components.reply())
                               .value_or(QList<QDBusObjectPath>());
        for (const QDBusObjectPath& path : paths) {
            calls.push_back(
                askKde(bus, path.path(), "org.kde.kglobalaccel.Component", "allShortcutInfos"));
        }
        std::vector<Accelerator> result;
        for (QDBusPendingCall& call : calls) {
            call.waitForFinished();
            const QVariant infos = call.reply().arguments().value(0);
            if (typeOf(infos) == "a(ssssssaiai)") {
                readKeys(infos.value<QDBusArgument>(), result);
            }
        }
        return result;
    };
}

DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus) {
    return [bus] {
        QDBusPendingCall call =
            ask(bus, methodCall("org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf",
                                "GetAllProperties", {"xfce4-keyboard-shortcuts", "/"}));
        call.waitForFinished();
        std::vector<XfceProperty> properties;
        const auto all = readArgument<QVariantMap>(call.reply()).value_or(QVariantMap());
        for (auto at = all.cbegin(); at != all.cend(); ++at) {
            properties.push_back({at.key().toStdString(), readValue<bool>(at.value())});
        }
        return xfceAccelerators(properties);
    };
}

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
