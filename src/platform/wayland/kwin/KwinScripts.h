// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/KwinReport.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <optional>

namespace calmora {

/// Runs our script within KWin, any number of times at once under different names, and receives
/// what it reports. Nobody but KWin is listened to. Main thread.
/// Source: KWin 5.27 and 6, org.kde.kwin.Scripting.
class KwinScripts final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.calmora.Calmora.Kwin")

  public:
    static constexpr auto path = "/app/calmora/Calmora/Kwin";
    static constexpr auto interfaceName = "app.calmora.Calmora.Kwin";

    /// What the script is to do; see windows.js.
    struct Task {
        /// Goes on reporting whenever something changes, until it is unloaded.
        bool watches = false;
        /// The window to close, if it still belongs to `process`, is a Wayland window and answers;
        /// empty for none.
        std::string close = {};
        ProcessId process = 0;
        /// The window to bring to the front; empty for none.
        std::string activate = {};
    };

    KwinScripts(QDBusConnection connection, std::function<void(KwinReport)> onReport);
    KwinScripts(const KwinScripts&) = delete;
    KwinScripts& operator=(const KwinScripts&) = delete;

    /// KWin's unique name on the bus; empty while it does not run.
    void setKwin(const QString& uniqueName) { kwin_ = uniqueName; }

    /// Runs the script under a name, in place of what runs under it. Its first report has been
    /// handled when this returns. Gives whether it has asked the window to close, or brought it to
    /// the front; absent if there was no report within `timeout`.
    std::optional<bool> run(const QString& name, const Task& task,
                            std::chrono::milliseconds timeout);

    /// Ends the script with this name, if there is one.
    void unload(const QString& name, std::chrono::milliseconds timeout);

    /// Handles the reports that have arrived.
    void handleReports();

    /// What the script calls. Other types than this never arrive here.
    Q_INVOKABLE void Report(const QString& text);

  private:
    [[nodiscard]] QDBusMessage call(const QString& at, const QString& interface,
                                    const QString& method, const QVariantList& arguments = {});
    void start(int script);

    QDBusConnection connection_;
    std::function<void(KwinReport)> onReport_;
    QString kwin_;
    std::chrono::steady_clock::time_point deadline_;
    std::uint64_t lastRun_ = 0;
    /// What the last run has reported; absent while it has not.
    std::optional<bool> hasAsked_;
};

} // namespace calmora
