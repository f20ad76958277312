// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellExtension.h"

#include "platform/UserDefaults.h"
#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/shortcuts/GSettings.h"
#include "platform/gnome/backend/ShellLink.h"
#include "platform/gnome/backend/ShellMessages.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "support/LoadedLibrary.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace calmora {
namespace {

constexpr auto service = "org.gnome.Shell";
constexpr auto path = "/org/gnome/Shell";
constexpr auto interfaceName = "org.gnome.Shell.Extensions";
constexpr auto schema = "org.gnome.shell";
constexpr auto enabledKey = "enabled-extensions";

constexpr auto answerKey = "gnomeExtension";
constexpr auto settledAnswer = "settled";
constexpr auto awaitsLoginAnswer = "awaitsLogin";

ExtensionAnswer storedAnswer(const UserDefaults& defaults) {
    const std::string answer = defaults.string(answerKey).value_or("");
    return answer == settledAnswer       ? ExtensionAnswer::settled
           : answer == awaitsLoginAnswer ? ExtensionAnswer::awaitsLogin
                                         : ExtensionAnswer::none;
}

bool isInstalled(const std::string& extension) {
    BaseDirectories directories = BaseDirectories::fromEnvironment();
    directories.dataDirs.push_back(directories.dataHome);
    std::error_code error;
    for (const auto& folder : directories.dataDirs) {
        const auto file = folder / "gnome-shell/extensions" / extension / "metadata.json";
        if (!extension.empty() && std::filesystem::exists(file, error)) {
            return true;
        }
    }
    return false;
}

void readSettings(ExtensionFacts& facts) {
    const auto library = loadedLibrary("gsettings");
    if (auto* mayWrite = functionIn<MayWriteGSettings>(library, mayWriteGSettingsName)) {
        facts.mayEnable = facts.mayEnable && mayWrite(schema, enabledKey);
    }
    SettingsValues values;
    if (auto* read = functionIn<ReadGSettings>(library, readGSettingsName)) {
        read(schema, nullptr, values);
    }
    for (auto& [key, list] : values) {
        if (key == enabledKey) {
            facts.enabled = std::move(list);
        } else if (key == "disabled-extensions") {
            facts.disabled = std::move(list);
        }
    }
}

} // namespace

ShellExtension::ShellExtension(const QDBusConnection& connection, ShellLink& link,
                               UserDefaults& defaults)
    : connection_(connection), link_(link), defaults_(defaults) {
    linkChanges_ = link_.onStateChanged([this] { refresh(); });
    refresh();
}

std::string ShellExtension::purpose() const {
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
               ? "Its extension for GNOME puts Calmora’s icon into the top bar."
               : "Calmora needs its extension for GNOME to see all apps, to ask them to quit, and "
                 "to put its icon into the top bar.";
}

Subscription ShellExtension::onChanged(std::function<void()> handler) {
    return changed_.connect(std::move(handler));
}

void ShellExtension::ask(const char* method, const QVariantList& arguments,
                         std::function<void(const QDBusMessage&)> done) {
    callAsync(connection_, methodCall(service, path, interfaceName, method, arguments), context_,
              std::move(done));
}

void ShellExtension::refresh() {
    if (link_.state() != ShellLink::State::absent) {
        setState(link_.isAttached() ? State::running : State::none);
        return;
    }
    callAsync(
        connection_,
        methodCall(service, path, "org.freedesktop.DBus.Properties", "GetAll", {interfaceName}),
        context_, [this](const QDBusMessage& answer) { readProperties(answer); });
}

void ShellExtension::readProperties(const QDBusMessage& answer) {
    const auto properties = readArgument<QVariantMap>(answer);
    if (!properties || link_.state() != ShellLink::State::absent) {
        return;
    }
    facts_ = {.shellVersion = memberOf<QString>(*properties, "ShellVersion").toStdString(),
              .mayEnable = memberOf<bool>(*properties, "UserExtensionsEnabled"),
              .answer = storedAnswer(defaults_)};
    const std::string extension = extensionFor(facts_.shellVersion);
    facts_.isInstalled = isInstalled(extension);
    if (!facts_.isInstalled) {
        decide();
        return;
    }
    readSettings(facts_);
    ask("GetExtensionInfo", {QString::fromStdString(extension)}, [this](const QDBusMessage& info) {
        facts_.isKnown = !readArgument<QVariantMap>(info).value_or(QVariantMap()).isEmpty();
        decide();
    });
}

void ShellExtension::decide() {
    if (link_.state() != ShellLink::State::absent) {
        return;
    }
    const ExtensionVerdict verdict = extensionVerdict(facts_);
    setState(verdict.state);
    if (verdict.enablesNow) {
        enable();
    }
}

void ShellExtension::enable() {
    const std::string extension = extensionFor(facts_.shellVersion);
    ask("EnableExtension", {QString::fromStdString(extension)}, [this](const QDBusMessage& answer) {
        const bool isEnabled = readArgument<bool>(answer).value_or(false);
        setAnswer(isEnabled ? ExtensionAnswer::settled : ExtensionAnswer::awaitsLogin);
        if (!isEnabled) {
            setState(State::awaitsLogin);
        } else if (!link_.isAttached()) {
            setState(State::none); // It comes in a moment.
        }
    });
}

void ShellExtension::decline() {
    setAnswer(ExtensionAnswer::settled);
    setState(State::declined);
}

void ShellExtension::setAnswer(ExtensionAnswer answer) {
    facts_.answer = answer;
    defaults_.set(answerKey, std::string(answer == ExtensionAnswer::settled ? settledAnswer
                                                                            : awaitsLoginAnswer));
}

bool disableExtensions() {
    auto* remove =
        functionIn<RemoveFromGSettings>(loadedLibrary("gsettings"), removeFromGSettingsName);
    return !remove || remove(schema, enabledKey, {ownExtensions.begin(), ownExtensions.end()});
}

void ShellExtension::setState(State state) {
    if (std::exchange(state_, state) != state) {
        changed_.emit();
    }
}

} // namespace calmora
