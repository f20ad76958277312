// SPDX-License-Identifier: MIT
#pragma once

#include "support/QtWaiting.h"

#include <QtDBus>

namespace calmora {

/// A session bus of the test's own that starts no services. It ends with the object.
class PrivateBus {
  public:
    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    /// A new connection; closed with the bus.
    [[nodiscard]] QDBusConnection connect();

    [[nodiscard]] qint64 processId() const { return daemon_.processId(); }

    /// The file that the daemon listens on.
    [[nodiscard]] std::string socket() const {
        return address_.section('=', 1, 1).section(',', 0, 0).toStdString();
    }

  private:
    QTemporaryDir folder_;
    QProcess daemon_;
    QString address_;
    QStringList connections_;
};

/// An object on the bus whose answers are the test's. It remembers what it was asked.
class ScriptedObject : public QDBusVirtualObject {
  public:
    using Answer = std::function<QVariantList(const QDBusMessage&)>;

    ScriptedObject(QDBusConnection connection, const QString& path, Answer answer = {});

    ~ScriptedObject() override { connection_.unregisterObject(path_); }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    /// Emits a signal of this object.
    void emitSignal(const QString& interface, const QString& name, const QVariantList& arguments);

    /// How often a method was called.
    [[nodiscard]] int count(const QString& member) const;

    std::vector<QDBusMessage> calls;
    /// Answers with this error, if any.
    QString error;
    /// Never answers.
    bool isSilent = false;

  private:
    QDBusConnection connection_;
    QString path_;
    Answer answer_;
};

/// Lets objects answer: the asking thread waits, so another one answers.
struct AnsweringThread {
    explicit AnsweringThread(std::initializer_list<QObject*> objects) {
        for (QObject* object : objects) {
            object->moveToThread(&thread);
        }
        thread.start();
    }

    ~AnsweringThread() {
        thread.quit();
        thread.wait();
    }

    QThread thread;
};

/// Calls a method and runs the event loop until the answer is there.
QDBusMessage callAndWait(const QDBusConnection& connection, const QString& service,
                         const QString& path, const QString& interface, const QString& method,
                         const QVariantList& arguments = {});

} // namespace calmora
