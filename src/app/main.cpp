// SPDX-License-Identifier: MIT
#include "app/CalmoraApp.h"
#include "app/CommandLine.h"
#include "app/Identity.h"
#include "app/QtEnvironment.h"
#include "platform/desktop/single_instance/CommandChannel.h"
#include "platform/linux/proc/PidFd.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QSessionManager>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using calmora::AppCommand;
using calmora::CommandLine;
using calmora::CommandStatus;

void printUsage(std::FILE* stream) {
    std::fprintf(stream, R"(Usage: calmora [OPTION]
Puts %s into the status bar; started again, it opens its popover.

  --toggle            open the popover, or close it
  --settings          open the settings
  --quit-all          quit the ticked applications politely
  --force-quit-all    quit them by force, after a question
  --list [--json]     print the applications
  --diagnose [PID]... print what %s sees and uses, and why a process is listed or not
  --version, --help
)",
                 calmora::identity::name, calmora::identity::name);
}

/// Lets the running instance carry out the command: the exit status; absent if none runs and the
/// command starts one.
std::optional<CommandStatus> runInInstance(int argc, char** argv, const CommandLine& line) {
    const QCoreApplication application(argc, argv);
    const QString connectionName("calmora-command");
    QStringList arguments;
    for (int index = 1; index < argc; ++index) {
        arguments += QString::fromLocal8Bit(argv[index]);
    }
    const bool mayTakeLong =
        line.command == AppCommand::quitAll || line.command == AppCommand::forceQuitAll;
    const auto answer = calmora::CommandChannel::send(
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName),
        calmora::identity::identifier, arguments, mayTakeLong);
    QDBusConnection::disconnectFromBus(connectionName);
    if (answer) {
        std::fputs(answer->output.toUtf8().constData(), stdout);
        return static_cast<CommandStatus>(answer->status);
    }
    if (calmora::startsInstance(line.command)) {
        return {};
    }
    std::fprintf(stderr, "calmora: no running %s answers on the session bus\n",
                 calmora::identity::name);
    return CommandStatus::noInstance;
}

/// Ends with a message and an exit status, not with a core file, if Qt cannot reach the display.
void endOnFatalMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    std::fprintf(stderr, "calmora: %s\n", qUtf8Printable(message));
    if (type == QtFatalMsg) {
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto line = calmora::parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    if (!line) {
        printUsage(stderr);
        return 2;
    }
    if (line->command == AppCommand::version) {
        std::printf("%s %s\n", calmora::identity::name, calmora::identity::version);
        return 0;
    }
    if (line->command == AppCommand::help) {
        printUsage(stdout);
        return 0;
    }
    if (calmora::isForInstance(line->command)) {
        if (const auto status = runInInstance(argc, argv, *line)) {
            return static_cast<int>(*status);
        }
        argc = 1; // The option is ours, not the toolkit's.
    }
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "calmora: there is no display to show anything on\n");
        return 1;
    }
    const calmora::QtEnvironment environment;
    calmora::raiseOpenFileLimit();
    calmora::EndingSignals signals;
    const QtMessageHandler usualHandler = qInstallMessageHandler(endOnFatalMessage);
    QApplication application(argc, argv);
    qInstallMessageHandler(usualHandler);
    if (argc > 1) { // Qt has removed its own options, such as -style.
        std::fprintf(stderr, "calmora: “%s” is not understood\n", argv[1]);
        printUsage(stderr);
        return 2;
    }
    QApplication::setApplicationName(calmora::identity::name);
    QApplication::setApplicationVersion(calmora::identity::version);
    QApplication::setDesktopFileName(calmora::identity::identifier);
    QApplication::setQuitOnLastWindowClosed(false);
    // The user's setting decides about the start at login, not the session manager.
    QObject::connect(
        &application, &QGuiApplication::saveStateRequest, &application,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);

    const QDBusConnection sessionBus = QDBusConnection::sessionBus();
    calmora::SingleInstance instance(sessionBus, calmora::identity::identifier);
    if (!instance.isFirst()) {
        return 0;
    }
    calmora::installTheme(application);
    return calmora::CalmoraApp(sessionBus, instance, signals, environment).run(*line);
}
