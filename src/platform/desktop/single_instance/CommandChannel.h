// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace calmora {

/// The running instance's answer to the arguments of a command line.
struct ChannelAnswer {
    /// The exit status.
    uint status = 0;
    /// For the standard output.
    QString output = {};
};

/// Receives command lines over the session bus: one method, Run(as) → (u exit status, s output).
class CommandChannel final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.calmora.Calmora.Commands")

  public:
    static constexpr auto interfaceName = "app.calmora.Calmora.Commands";

    /// Carries out a command line. May block.
    using Handler = std::function<ChannelAnswer(const QStringList& arguments)>;

    /// `handler` is called from the main loop.
    CommandChannel(QDBusConnection connection, const QString& applicationId, Handler handler);

    /// Sends a command line to the running instance and waits for its answer: three seconds, or
    /// until the instance has finished if `mayTakeLong`. Absent without instance, bus or answer.
    [[nodiscard]] static std::optional<ChannelAnswer> send(const QDBusConnection& connection,
                                                           const QString& applicationId,
                                                           const QStringList& arguments,
                                                           bool mayTakeLong);

  public Q_SLOTS:
    /// The method, under its name.
    uint Run(const QStringList& arguments, QString& output);

  private:
    QDBusConnection connection_;
    Handler handler_;
};

} // namespace calmora
