// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/dbus/Calls.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusServer>

#include <cstdint>
#include <cstdlib>
#include <memory>

using namespace calmora;

namespace {

/// Turns bytes into the values of a message: each byte is a type or how many follow.
class Values {
  public:
    Values(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    [[nodiscard]] bool atEnd() const { return next_ == size_; }

    QVariant value(int depth = 0) {
        switch (byte() % (depth < 8 ? 12 : 8)) {
        case 0:
            return int{byte()};
        case 1:
            return uint{byte()};
        case 2:
            return byte() % 2 == 0;
        case 3:
            return double{1.0 * byte()};
        case 4:
            return text();
        case 5:
            return QStringList{text(), text()};
        case 6:
            return QByteArray(byte(), 'x');
        case 7:
            return QVariant::fromValue(QList<int>(byte() * 100, 7));
        case 8:
            return QVariant::fromValue(QDBusVariant(value(depth + 1)));
        case 9: {
            QVariantMap map;
            for (int left = byte() % 8; left > 0; --left) {
                map.insert(text(), value(depth + 1));
            }
            return map;
        }
        case 10:
            return QVariant::fromValue(QList<QStringList>(byte() % 4, {text()}));
        default:
            return QVariantList{value(depth + 1), value(depth + 1)};
        }
    }

  private:
    std::uint8_t byte() { return atEnd() ? 0 : data_[next_++]; }

    QString text() { return QString(byte() % 16, QChar('a' + byte() % 26)); }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t next_ = 0;
};

/// Both ends of a connection without a bus: what comes out was written and read as on a bus.
struct Line {
    Line() {
        qDBusRegisterMetaType<QList<QStringList>>();
        QObject::connect(&server, &QDBusServer::newConnection, &server,
                         [this](const QDBusConnection& connection) { far = connection; });
        while (!far.isConnected()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    int argc = 1;
    char name[5] = "fuzz";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    QDBusServer server{"unix:tmpdir=/tmp"};
    QDBusConnection far{QString()};
    QDBusConnection near = QDBusConnection::connectToPeer(server.address(), "near");
};

/// Each reader takes a value of its type whole, or leaves it.
template <typename... Types>
void readAs(const QDBusMessage& message) {
    (static_cast<void>(readArgument<Types>(message)), ...);
    (static_cast<void>(readArguments<QString, Types>(message)), ...);
    (static_cast<void>(readProperty<Types>(message)), ...);
    for (const QVariant& value : message.arguments()) {
        (static_cast<void>(readValue<Types>(value)), ...);
        if (const auto map = readValue<QVariantMap>(value)) {
            (static_cast<void>(readValue<Types>(map->value("a"))), ...);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Line line;
    bool hasCome = false;
    const BusSignal signal(
        line.near, {.path = "/o", .interface = "o.o", .name = "S"},
        [&](const QDBusMessage& message) {
            readAs<int, uint, bool, double, QString, QStringList, QByteArray, QList<int>,
                   QDBusVariant, QVariantMap, QList<QStringList>, QVariantList>(message);
            hasCome = true;
        });
    QDBusMessage sent = QDBusMessage::createSignal("/o", "o.o", "S");
    Values values(data, size);
    while (!values.atEnd() && sent.arguments().size() < 8) {
        sent << values.value();
    }
    if (!line.far.send(sent)) {
        return 0; // What Qt does not send.
    }
    while (!hasCome) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return 0;
}
