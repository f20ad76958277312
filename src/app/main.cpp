#include "app/CalmoraApp.h"
#include "app/Identity.h"
#include "platform/linux/proc/OpenFileLimit.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QSessionManager>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void printUsage(std::FILE* stream) {
    std::fprintf(stream,
                 "Usage: calmora [--version | --help]\n"
                 "Puts %s into the status bar; started again, it opens its popover.\n",
                 calmora::identity::name);
}

/// Handles the options that only print a text; whether there was one.
bool printsText(int argc, char** argv) {
    using namespace calmora;
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--version") == 0) {
            std::printf("%s %s\n", identity::name, identity::version);
            return true;
        }
        if (std::strcmp(argv[index], "--help") == 0) {
            printUsage(stdout);
            return true;
        }
    }
    return false;
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
    if (printsText(argc, argv)) {
        return 0;
    }
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "calmora: there is no display to show anything on\n");
        return 1;
    }
    // In a Wayland session only an X11 client can place its popover beside the icon.
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
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
    return calmora::CalmoraApp(sessionBus, instance, signals).run();
}
