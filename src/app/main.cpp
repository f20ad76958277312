// SPDX-License-Identifier: MIT
#include "app/CalmoraApp.h"
#include "app/CommandLine.h"
#include "app/Identity.h"
#include "app/Leaving.h"
#include "app/QtEnvironment.h"
#include "platform/desktop/single_instance/CommandChannel.h"
#include "platform/desktop/single_instance/RuntimeLock.h"
#include "platform/desktop/single_instance/SingleInstance.h"
#include "platform/linux/launch/ProgramEnvironment.h"
#include "platform/linux/proc/PidFd.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QSessionManager>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

namespace {

using calmora::AppCommand;
using calmora::CommandLine;
using calmora::CommandStatus;
using calmora::RuntimeLock;
using calmora::SingleInstance;
using std::chrono::steady_clock;

void printUsage(std::FILE* stream) {
    std::fprintf(stream, R"(Usage: calmora [OPTION]
Puts %s into the status bar; started again, it opens its popover.

  --toggle            open the popover, or close it
  --settings          open the settings
  --quit-all          quit the ticked applications politely
  --force-quit-all    quit them by force, after a question
  --list [--json]     print the applications
  --diagnose [PID]... print what %s sees and uses, and why a process is listed or not
  --leave             end it, and take back what the desktop does for it, as before a removal
  --version, --help
)",
                 calmora::identity::name, calmora::identity::name);
}

/// Ends the program with a message if something takes longer than an instance may take to answer.
class Alarm {
  public:
    Alarm() {
        std::signal(SIGALRM, [](int) {
            constexpr std::string_view text = "calmora: the session bus does not answer\n";
            static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
            std::_Exit(static_cast<int>(CommandStatus::noInstance));
        });
        ::alarm(std::chrono::duration_cast<std::chrono::seconds>(SingleInstance::timeout).count());
    }

    Alarm(const Alarm&) = delete;
    Alarm& operator=(const Alarm&) = delete;

    ~Alarm() { ::alarm(0); }
};

/// Keeps the signals that end the program from threads that are started meanwhile. If the program
/// becomes the instance, they are for its main loop: EndingSignals. Source: pthread_sigmask(3).
class SignalsForMainThread {
  public:
    SignalsForMainThread() {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            sigaddset(&signals, signal);
        }
        pthread_sigmask(SIG_BLOCK, &signals, &before_);
    }

    SignalsForMainThread(const SignalsForMainThread&) = delete;
    SignalsForMainThread& operator=(const SignalsForMainThread&) = delete;

    ~SignalsForMainThread() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_{};
};

/// A connection to the session bus of a command's own; ends the program if the bus does not answer.
QDBusConnection connectToBus(const QString& name) {
    const Alarm alarm;
    const SignalsForMainThread signals; // Qt's thread for D-Bus starts here and stays.
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
}

/// Lets the running instance carry out the command: the exit status; absent if none runs and the
/// command starts one or goes on alone.
std::optional<CommandStatus> runInInstance(int argc, char** argv, const CommandLine& line) {
    const QCoreApplication application(argc, argv);
    const QString connectionName("calmora-command");
    const QDBusConnection bus = connectToBus(connectionName);
    QStringList arguments;
    for (int index = 1; index < argc; ++index) {
        arguments += QString::fromLocal8Bit(argv[index]);
    }
    const bool mayTakeLong =
        line.command == AppCommand::quitAll || line.command == AppCommand::forceQuitAll;
    const auto answer =
        calmora::CommandChannel::send(bus, calmora::identity::identifier, arguments, mayTakeLong);
    QDBusConnection::disconnectFromBus(connectionName);
    if (answer) {
        std::fputs(answer->output.toUtf8().constData(), stdout);
        return static_cast<CommandStatus>(answer->status);
    }
    if (calmora::startsInstance(line.command) || line.command == AppCommand::leave) {
        return {};
    }
    std::fprintf(stderr, "calmora: no running %s answers on the session bus\n",
                 calmora::identity::name);
    return CommandStatus::noInstance;
}

/// The exit status of a start while an instance runs that does not answer.
int endOfSilence() {
    std::fprintf(stderr, "calmora: %s is running but does not answer\n", calmora::identity::name);
    return static_cast<int>(CommandStatus::noInstance);
}

/// Waits until no instance runs, and takes back what the desktop does for one: the exit status.
int leave(int argc, char** argv, steady_clock::time_point started) {
    const QCoreApplication application(argc, argv);
    const auto lock = calmora::waitForLock(started + SingleInstance::timeout);
    if (!lock) {
        return endOfSilence();
    }
    const std::vector<std::string> kept = calmora::withdraw(connectToBus("calmora-leave"));
    for (const std::string& line : kept) {
        std::fprintf(stderr, "calmora: %s\n", line.c_str());
    }
    return static_cast<int>(kept.empty() ? CommandStatus::done : CommandStatus::nothingDone);
}

/// Asks the process that holds the lock, if there is one, to show itself: the exit status. Absent
/// if this process has the lock, or none can be made.
std::optional<int> showRunning(RuntimeLock& lock, steady_clock::time_point started) {
    const auto left = started + SingleInstance::timeout - steady_clock::now();
    if (lock.askHolder(std::chrono::ceil<std::chrono::milliseconds>(left))) {
        return 0;
    }
    return lock.isHeldElsewhere() ? std::optional(endOfSilence()) : std::nullopt;
}

/// Ends with a message and an exit status, not with a core file, if Qt cannot reach the display.
void endOnFatalMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    std::fprintf(stderr, "calmora: %s\n", qUtf8Printable(message));
    if (type == QtFatalMsg) {
        std::_Exit(EXIT_FAILURE);
    }
}

/// Tells the toolkit which program this is, and that windows and sessions do not end it.
void introduce(QApplication& application) {
    QApplication::setApplicationName(calmora::identity::name);
    QApplication::setApplicationVersion(calmora::identity::version);
    QApplication::setDesktopFileName(calmora::identity::identifier);
    QApplication::setQuitOnLastWindowClosed(false);
    // The user's setting decides about the start at login, not the session manager.
    QObject::connect(
        &application, &QGuiApplication::saveStateRequest, &application,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
}

void warnOfTakenName() {
    std::fprintf(stderr,
                 "calmora: another program has the name %s on the session bus; commands such as "
                 "--toggle do not reach this %s\n",
                 calmora::identity::identifier, calmora::identity::name);
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char** argv) {
    const auto started = steady_clock::now();
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
        const auto status = runInInstance(argc, argv, *line);
        if (line->command == AppCommand::leave &&
            status.value_or(CommandStatus::done) == CommandStatus::done) {
            return leave(argc, argv, started);
        }
        if (status) {
            return static_cast<int>(*status);
        }
        argc = 1; // The option is ours, not the toolkit's.
    }
    if (!hasDisplay()) {
        std::fprintf(stderr, "calmora: there is no display to show anything on\n");
        return 1;
    }
    RuntimeLock lock(RuntimeLock::userFolder(),
                     RuntimeLock::nameForDisplay(calmora::identity::identifier));
    if (const auto status = showRunning(lock, started)) {
        return *status;
    }
    calmora::Inheritance inheritance = calmora::Inheritance::now();
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
    introduce(application);
    const QDBusConnection sessionBus = QDBusConnection::sessionBus();
    SingleInstance instance(sessionBus, calmora::identity::identifier, std::move(lock));
    if (instance.state() != SingleInstance::State::first) {
        return instance.state() == SingleInstance::State::shownElsewhere ? 0 : endOfSilence();
    }
    if (instance.isNameTaken()) {
        warnOfTakenName();
    }
    calmora::installTheme(application);
    return calmora::CalmoraApp(sessionBus, instance, signals, environment, std::move(inheritance))
        .run(*line);
}
