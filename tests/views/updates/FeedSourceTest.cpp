// SPDX-License-Identifier: MIT
#include "updates/FeedSource.h"
#include "support/QtWaiting.h"

#include "platform/qt/QtRunLoop.h"
#include "support/TempFolder.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <thread>

namespace calmora {
namespace {

const QByteArray feed = "<releases><release version='1.2'/></releases>";

/// A server on this machine that says what it is told to, and closes.
struct Server {
    Server() {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] {
            QTcpSocket* socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                request += socket->readAll();
                const auto answer = answers.find(request.split(' ').value(1).toStdString());
                if (answer != answers.end() && request.contains("\r\n\r\n")) {
                    request.clear();
                    socket->write(answer->second);
                    socket->disconnectFromHost();
                }
            });
        });
    }

    [[nodiscard]] std::string address(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(server.serverPort()) + path;
    }

    QTcpServer server;
    QByteArray request;
    /// Whole answers by path; to others nothing is ever said.
    std::map<std::string, QByteArray> answers;
};

QByteArray answered(const char* status, const QByteArray& headers, const QByteArray& body) {
    return QByteArray("HTTP/1.1 ") + status + "\r\n" + headers + "Connection: close\r\n\r\n" + body;
}

QByteArray moved(const std::string& target) {
    return answered("302 Found", "Location: " + QByteArray::fromStdString(target) + "\r\n", {});
}

using Told = std::variant<std::string, UpdateError>;
const Told good = "1.2";

struct FeedSourceTest : testing::Test {
    /// What a fetch tells: the newest version or the error.
    Told fetch(const std::string& address, const char* program = FETCH_PROGRAM) {
        FeedSource source(address, program, {}, loop);
        std::optional<ReleaseList> told;
        Subscription token;
        token = source.fetch([&](const ReleaseList& list) {
            EXPECT_FALSE(told) << "once";
            told = list;
            token.reset();
        });
        EXPECT_FALSE(told) << "not before the loop turns";
        if (!loopUntil([&] { return told.has_value(); })) {
            return "no answer";
        }
        if (const auto* releases = std::get_if<std::vector<Release>>(&*told)) {
            return releases->at(0).version;
        }
        return std::get<UpdateError>(*told);
    }

    AlertSession alerts;
    QtRunLoop loop{alerts};
    Server server;
};

TEST_F(FeedSourceTest, ReadsOnlyAllowedAnswersOfTheServer) {
    const QByteArray large(1024 * 1024 + 1, ' ');
    const std::string elsewhere =
        "http://localhost:" + std::to_string(server.server.serverPort()) + "/good";

    const std::tuple<const char*, QByteArray, Told> cases[] = {
        {"/good", answered("200 OK", {}, feed), good},
        {"/moved", moved("/good"), good},
        {"/circle", moved("/circle"), UpdateError::redirect},
        {"/host", moved(elsewhere), UpdateError::redirect},
        {"/missing", answered("404 Not Found", {}, feed), UpdateError::refused},
        {"/large", answered("200 OK", {}, feed + large), UpdateError::tooLarge},
        {"/short", answered("200 OK", "Content-Length: 900\r\n", feed), UpdateError::unreachable},
    };
    for (const auto& [path, answer, told] : cases) {
        server.answers[path] = answer;
    }
    for (const auto& [path, answer, told] : cases) {
        EXPECT_EQ(fetch(server.address(path)), told) << path;
    }
    EXPECT_EQ(fetch(server.address("/good"), "/nonexistent"), Told(UpdateError::loader));
    server.server.close();
    EXPECT_EQ(fetch(server.address("/good")), Told(UpdateError::unreachable));
    EXPECT_EQ(fetch("file:///dev/zero", ""), Told(UpdateError::unreachable));
    EXPECT_EQ(fetch("http://example.org/feed.xml", ""), Told(UpdateError::address));
    const TempFolder folder;
    EXPECT_EQ(fetch("file://" + folder.write("f", feed.toStdString()).string(), ""), good);
}

TEST_F(FeedSourceTest, CancelsAtOnceWhateverTheServerDoes) {
    for (const QByteArray endless : {"X-Header: more\r\n", "X-Header-without-end"}) {
        std::atomic<quint16> port = 0;
        std::atomic<bool> isOver = false;
        std::atomic<bool> isGone = false;
        std::thread hostile([&] {
            QTcpServer listener;
            listener.listen(QHostAddress::LocalHost);
            port = listener.serverPort();
            listener.waitForNewConnection(-1);
            QTcpSocket* client = listener.nextPendingConnection();
            client->write("HTTP/1.1 200 OK\r\n");
            while (!isOver && client->state() == QAbstractSocket::ConnectedState) {
                client->write(endless.repeated(1000));
                client->waitForBytesWritten(100);
            }
            isGone = true;
        });
        EXPECT_TRUE(loopUntil([&] { return port != 0; }));
        FeedSource source("http://127.0.0.1:" + std::to_string(port), FETCH_PROGRAM, {}, loop);
        std::optional<ReleaseList> told;
        Subscription fetching = source.fetch([&](const ReleaseList& list) { told = list; });
        QTest::qWait(300);
        const auto start = std::chrono::steady_clock::now();
        fetching.reset();
        QTest::qWait(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_LT(took, std::chrono::seconds(2)) << endless.toStdString();
        EXPECT_TRUE(loopUntil([&] { return isGone.load(); }));
        loopFor(std::chrono::milliseconds(100)); // Qt hears of the ended process, too.
        isOver = true;
        hostile.join();
    }
}

} // namespace
} // namespace calmora
