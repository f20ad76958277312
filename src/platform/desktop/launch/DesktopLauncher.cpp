// SPDX-License-Identifier: MIT
#include "platform/desktop/launch/DesktopLauncher.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/status/DbusTypes.h"
#include "platform/linux/xdg/InstalledApplications.h"

#include <QDBusError>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <string_view>
#include <tuple>
#include <utility>

namespace calmora {

/// (sv).
struct UnitProperty {
    QString name;
    QDBusVariant value{0};

    static auto fields(auto& self) { return std::tie(self.name, self.value); }
};

/// (sa(sv)).
struct AuxiliaryUnit {
    QString name;
    QList<UnitProperty> properties;

    static auto fields(auto& self) { return std::tie(self.name, self.properties); }
};

} // namespace calmora

Q_DECLARE_METATYPE(calmora::UnitProperty)
Q_DECLARE_METATYPE(calmora::AuxiliaryUnit)

namespace calmora {
namespace {

constexpr auto managerService = "org.freedesktop.systemd1";
constexpr auto managerPath = "/org/freedesktop/systemd1";
constexpr auto managerInterface = "org.freedesktop.systemd1.Manager";
constexpr auto applicationInterface = "org.freedesktop.Application";
constexpr int managerMilliseconds = 1000;
/// systemd moves the process soon after it has answered.
constexpr std::chrono::milliseconds moveTimeout{150};
constexpr std::string_view usualPath = "/usr/local/bin:/usr/bin:/bin";

void registerTypes() {
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
}

/// Whether a desktop file id is a bus name, as D-Bus activation needs.
/// Source: freedesktop D-Bus Specification, "Bus names".
bool isBusName(std::string_view id) {
    constexpr std::size_t longest = 255;
    constexpr std::string_view digits = "0123456789";
    bool startsElement = true;
    bool isFine = id.find('.') != std::string_view::npos && id.size() <= longest;
    for (const char letter : id) {
        const bool isDigit = digits.find(letter) != std::string_view::npos;
        const bool isWord = isDigit || (letter >= 'a' && letter <= 'z') ||
                            (letter >= 'A' && letter <= 'Z') || letter == '_' || letter == '-';
        isFine = isFine && (letter == '.' || isWord) && !(startsElement && (!isWord || isDigit));
        startsElement = letter == '.';
    }
    return isFine && !startsElement;
}

/// The object that answers for an application: /org/example/App_Name.
QString objectPathOf(const std::string& desktopId) {
    return '/' + QString::fromStdString(desktopId).replace('.', '/').replace('-', '_');
}

/// Whether the error says that the application was not started. Where it may have been, such as
/// after a timeout, a second one must not be.
bool saysNotStarted(const QDBusMessage& answer) {
    constexpr auto names = std::to_array<std::string_view>(
        {"org.freedesktop.DBus.Error.AccessDenied", "org.freedesktop.DBus.Error.NameHasNoOwner",
         "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.UnknownInterface",
         "org.freedesktop.DBus.Error.UnknownMethod", "org.freedesktop.DBus.Error.UnknownObject"});
    const std::string name = answer.errorName().toStdString();
    return name.starts_with("org.freedesktop.DBus.Error.Spawn.") ||
           std::ranges::find(names, name) != names.end();
}

std::string randomWord() {
    std::random_device random;
    return QString::number((quint64(random()) << 32U) | random(), 16).toStdString();
}

} // namespace

DesktopLauncher::DesktopLauncher(DesktopLauncherSurroundings surroundings)
    : surroundings_(std::move(surroundings)) {}

std::optional<ProgramStart> DesktopLauncher::programOf(const DesktopEntry& entry) const {
    auto words = launchWords(entry);
    const std::string_view path = surroundings_.inheritance.variable("PATH");
    const std::string_view folders = path.empty() ? usualPath : path;
    auto program = words ? findProgram(words->front(), folders) : std::nullopt;
    if (!program || (!entry.tryExec.empty() && !findProgram(entry.tryExec, folders))) {
        return std::nullopt;
    }
    return ProgramStart{.program = *std::move(program),
                        .arguments = *std::move(words),
                        .folder = entry.workingFolder.empty()
                                      ? std::string(surroundings_.inheritance.variable("HOME"))
                                      : entry.workingFolder,
                        .openFiles = surroundings_.inheritance.openFiles};
}

const DesktopEntry* DesktopLauncher::usable(const std::string& desktopId) const {
    const DesktopEntry* entry = surroundings_.installed.index().withId(desktopId);
    return entry && !entry->needsTerminal ? entry : nullptr;
}

bool DesktopLauncher::maySpeakTo(const DesktopEntry& entry) const {
    return entry.isDbusActivatable && isBusName(entry.id) && surroundings_.sessionBus.isConnected();
}

bool DesktopLauncher::canLaunch(const std::string& desktopId) {
    const DesktopEntry* entry = usable(desktopId);
    return entry && (maySpeakTo(*entry) || programOf(*entry));
}

bool DesktopLauncher::launch(const std::string& desktopId) {
    const DesktopEntry* entry = usable(desktopId);
    if (!entry) {
        return false;
    }
    auto program = programOf(*entry);
    const bool isOnBus = maySpeakTo(*entry);
    if (!program && !isOnBus) {
        return false;
    }
    const std::string token = surroundings_.activationToken();
    if (program) {
        program->environment =
            programEnvironment(surroundings_.inheritance.environment, entry->path, token);
    }
    if (isOnBus) {
        activate(*entry, token, std::move(program));
        return true;
    }
    return start(*std::move(program), *entry);
}

void DesktopLauncher::activate(const DesktopEntry& entry, const std::string& token,
                               std::optional<ProgramStart> otherwise) {
    QVariantMap platformData;
    if (!token.empty()) {
        for (const char* key : {"desktop-startup-id", "activation-token"}) {
            platformData.insert(key, QString::fromStdString(token));
        }
    }
    // The index may be read again before the answer comes.
    callAsync(surroundings_.sessionBus,
              methodCall(QString::fromStdString(entry.id), objectPathOf(entry.id),
                         applicationInterface, "Activate", {platformData}),
              context_, [this, entry, program = std::move(otherwise)](const QDBusMessage& answer) {
                  if (program && saysNotStarted(answer)) {
                      start(*program, entry);
                  }
              });
}

bool DesktopLauncher::start(ProgramStart program, const DesktopEntry& entry) {
    auto waiting = DetachedProgram::prepare(program);
    if (!waiting) {
        return false;
    }
    // Before it runs, so that all that it starts is in the scope too.
    putIntoScope(waiting->process(), entry);
    return waiting->run();
}

void DesktopLauncher::putIntoScope(ProcessId process, const DesktopEntry& entry) {
    const std::string name = appScopeName(entry.id, randomWord());
    if (isManagerSilent_ || name.empty() || !surroundings_.sessionBus.isConnected()) {
        return;
    }
    registerTypes();
    const auto property = [](const char* key, const QVariant& value) {
        return UnitProperty{key, QDBusVariant(value)};
    };
    const QList<UnitProperty> properties{
        property("Description", QString::fromStdString(entry.name)),
        property("PIDs", QVariant::fromValue(QList<uint>{static_cast<uint>(process)})),
        property("Slice", QString("app.slice")),
        property("CollectMode", QString("inactive-or-failed")),
    };
    QDBusMessage call =
        methodCall(managerService, managerPath, managerInterface, "StartTransientUnit",
                   {QString::fromStdString(name), QString("fail"), QVariant::fromValue(properties),
                    QVariant::fromValue(QList<AuxiliaryUnit>())});
    call.setAutoStartService(false);
    const QDBusMessage answer =
        surroundings_.sessionBus.call(call, QDBus::Block, managerMilliseconds);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        waitForControlGroup(process, name, moveTimeout);
    }
    isManagerSilent_ = QDBusError(answer).type() == QDBusError::NoReply;
}

} // namespace calmora
