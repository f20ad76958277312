// SPDX-License-Identifier: MIT
#include "platform/wayland/kwin/KwinScripts.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <WindowsScript.h>

#include <QCoreApplication>
#include <QEvent>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>
#include <thread>
#include <utility>

namespace calmora {
namespace {

constexpr auto scriptingPath = "/Scripting";
constexpr auto scriptingInterface = "org.kde.kwin.Scripting";
constexpr std::chrono::milliseconds pollingStep{2};

} // namespace

KwinScripts::KwinScripts(QDBusConnection connection, std::function<void(KwinReport)> onReport)
    : connection_(std::move(connection)), onReport_(std::move(onReport)) {
    connection_.registerObject(path, this, QDBusConnection::ExportAllInvokables);
}

std::optional<bool> KwinScripts::run(const QString& name, const Task& task,
                                     std::chrono::milliseconds timeout) {
    hasAsked_.reset();
    const QJsonObject parameters{{"service", connection_.baseService()},
                                 {"path", path},
                                 {"interface", interfaceName},
                                 {"run", static_cast<qint64>(++lastRun_)},
                                 {"watches", task.watches},
                                 {"close", QString::fromStdString(task.close)},
                                 {"activate", QString::fromStdString(task.activate)},
                                 {"process", task.process}};
    // Readable for our user only; KWin has read it when the run is over.
    QTemporaryFile file(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
                        "/calmora-kwin-XXXXXX.js");
    const QByteArray text =
        "const parameters = " + QJsonDocument(parameters).toJson(QJsonDocument::Compact) + ";\n" +
        windowsScript;
    if (kwin_.isEmpty() || !file.open() || file.write(text) != text.size() || !file.flush()) {
        return std::nullopt;
    }
    unload(name, timeout);
    const auto script = readArgument<int>(
        call(scriptingPath, scriptingInterface, "loadScript", {file.fileName(), name}));
    if (script && *script >= 0) {
        start(*script);
    }
    return hasAsked_;
}

void KwinScripts::unload(const QString& name, std::chrono::milliseconds timeout) {
    deadline_ = std::chrono::steady_clock::now() + timeout;
    static_cast<void>(call(scriptingPath, scriptingInterface, "unloadScript", {name}));
}

/// Starts a loaded script and waits for its report, which arrives before the answer.
void KwinScripts::start(int script) {
    for (const char* pattern : {"/Scripting/Script%1", "/%1"}) {
        static_cast<void>(call(QString(pattern).arg(script), "org.kde.kwin.Script", "run"));
        handleReports();
        if (hasAsked_) {
            return;
        }
    }
    // KWin numbers scripts by their count, so that a script which outlived an older one may have
    // this one's path. This starts all that do not run yet, and answers before they do.
    static_cast<void>(call(scriptingPath, scriptingInterface, "start"));
    while (!hasAsked_ && std::chrono::steady_clock::now() < deadline_) {
        std::this_thread::sleep_for(pollingStep);
        handleReports();
    }
}

QDBusMessage KwinScripts::call(const QString& at, const QString& interface, const QString& method,
                               const QVariantList& arguments) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline_ - std::chrono::steady_clock::now());
    return connection_.call(methodCall(kwin_, at, interface, method, arguments), QDBus::Block,
                            std::max(1, static_cast<int>(left.count())));
}

void KwinScripts::handleReports() {
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void KwinScripts::Report(const QString& text) {
    auto report = message().service() == kwin_ ? parseKwinReport(text.toStdString()) : std::nullopt;
    if (report) {
        if (report->run == lastRun_ && !hasAsked_) {
            hasAsked_ = report->hasAsked;
        }
        onReport_(*std::move(report));
    }
}

} // namespace calmora
