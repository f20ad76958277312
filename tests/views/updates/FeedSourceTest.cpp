#include "updates/FeedSource.h"
#include "support/QtWaiting.h"

#include "platform/qt/QtRunLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace calmora {
namespace {

const QByteArray feed = "<releases><release version='1.2'/></releases>";

/// A server on this machine that says what it is told to, and closes.
struct Server {
    explicit Server(std::unique_ptr<QTcpServer> made) : owned(std::move(made)) {
        if (!server.listen(QHostAddress::LocalHost)) {
            throw std::runtime_error("no server");
        }
        QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] {
            QTcpSocket* socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                request += socket->readAll();
                latest = socket;
                if (request.startsWith('\x16')) { // A handshake, for which this is no partner.
                    socket->write("HTTP/1.1 400 Bad Request\r\n\r\n");
                    socket->disconnectFromHost();
                }
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

    std::unique_ptr<QTcpServer> owned;
    QTcpServer& server{*owned};
    QByteArray request;
    QPointer<QTcpSocket> latest;
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
    Told fetch(const std::string& address, const char* library = NETWORK_LIBRARY) {
        FeedSource source(address, library, {}, loop);
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
    Server server{std::make_unique<QTcpServer>()};
};

TEST_F(FeedSourceTest, ReadsOnlyAllowedAnswersOfTheServer) {
    const QByteArray large(1024 * 1024 + 1, ' ');
    const std::string elsewhere =
        "http://localhost:" + std::to_string(server.server.serverPort()) + "/good";

    const std::tuple<const char*, QByteArray, Told> cases[] = {
        {"/good", answered("200 OK", {}, feed), good},
        {"/full", answered("200 OK", {}, feed + large.mid(feed.size() + 1)), good},
        {"/moved", moved("/good"), good},
        {"/circle", moved("/circle"), UpdateError::redirect},
        {"/host", moved(elsewhere), UpdateError::redirect},
        {"/scheme", moved("https://127.0.0.1/good"), UpdateError::redirect},
        {"/file", moved("file:///etc/passwd"), UpdateError::redirect},
        {"/missing", answered("404 Not Found", {}, feed), UpdateError::refused},
        {"/none", answered("204 No Content", {}, {}), UpdateError::refused},
        {"/large", answered("200 OK", {}, feed + large), UpdateError::tooLarge},
        {"/claims", answered("200 OK", "Content-Length: 9000000\r\n", large),
         UpdateError::tooLarge},
        {"/short", answered("200 OK", "Content-Length: 900\r\n", feed), UpdateError::unreachable},
        {"/packed",
         answered("200 OK", "Content-Encoding: gzip\r\n",
                  QByteArray::fromHex("1f8b0800000000000203b3294acd494d2c4e2db6b381b214ca528b8a33f3"
                                      "f36cd50dd5f5ed6cf4e10a0034db5a6f2b000000")),
         UpdateError::unreadable},
    };
    for (const auto& [path, answer, told] : cases) {
        server.answers[path] = answer;
    }
    for (const auto& [path, answer, told] : cases) {
        EXPECT_EQ(fetch(server.address(path)), told) << path;
    }
    std::string secure = server.address("/good");
    EXPECT_EQ(fetch(secure.insert(4, "s")), Told(UpdateError::insecure));
    EXPECT_EQ(fetch(server.address("/good"), "/nonexistent.so"), Told(UpdateError::loader));
    server.server.close();
    EXPECT_EQ(fetch(server.address("/good")), Told(UpdateError::unreachable));
}

TEST_F(FeedSourceTest, ReadsFilesWithoutTheNetwork) {
    const TempFolder folder;
    folder.write("feed.xml", feed.toStdString());
    folder.write("large.xml", std::string(1024 * 1024 + 1, ' '));
    const std::string base = "file://" + folder.path().string();
    const std::pair<std::string, Told> cases[] = {
        {base + "/feed.xml", good},
        {base + "/large.xml", UpdateError::tooLarge},
        {base + "/missing.xml", UpdateError::unreachable},
        {base, UpdateError::unreachable},
        {"file:///dev/zero", UpdateError::unreachable},
        {"http://example.org/feed.xml", UpdateError::address},
        {folder.path().string() + "/feed.xml", UpdateError::address},
        {"", UpdateError::address}};
    for (const auto& [address, told] : cases) {
        EXPECT_EQ(fetch(address, ""), told) << address;
    }
}

TEST_F(FeedSourceTest, TrustsTheSystemsCertificates) {
    const TempFolder folder;
    const QString key = QString::fromStdString((folder.path() / "key.pem").string());
    const QString certificate = QString::fromStdString((folder.path() / "cert.pem").string());
    ASSERT_EQ(
        QProcess::execute("openssl", {"req", "-x509", "-newkey", "ec", "-pkeyopt",
                                      "ec_paramgen_curve:prime256v1", "-nodes", "-subj",
                                      "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1",
                                      "-days", "2", "-keyout", key, "-out", certificate}),
        0);
    QFile keyFile(key);
    ASSERT_TRUE(keyFile.open(QIODevice::ReadOnly));
    QSslConfiguration own = QSslConfiguration::defaultConfiguration();
    own.setPrivateKey(QSslKey(&keyFile, QSsl::Ec));
    own.setLocalCertificateChain(QSslCertificate::fromPath(certificate));
    auto ssl = std::make_unique<QSslServer>();
    ssl->setSslConfiguration(own);
    Server secure(std::move(ssl));
    secure.answers["/good"] = answered("200 OK", {}, feed);
    const std::string address = secure.address("/good").insert(4, "s");
    EXPECT_EQ(fetch(address), Told(UpdateError::insecure));

    const QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = usual;
    trusting.addCaCertificates(certificate);
    QSslConfiguration::setDefaultConfiguration(trusting);
    EXPECT_EQ(fetch(address), good);
    secure.answers["/down"] = moved(server.address("/good"));
    EXPECT_EQ(fetch(secure.address("/down").insert(4, "s")), Told(UpdateError::redirect));
    QSslConfiguration::setDefaultConfiguration(usual);
}

TEST_F(FeedSourceTest, EndsTheTransferWhenItIsCancelled) {
    FeedSource source(server.address("/silence"), NETWORK_LIBRARY, {}, loop);
    bool isTold = false;
    Subscription token = source.fetch([&](const ReleaseList&) { isTold = true; });
    ASSERT_TRUE(loopUntil([&] { return server.latest && server.request.contains("\r\n\r\n"); }));
    token.reset();
    EXPECT_TRUE(loopUntil([&] { return !server.latest; }));
    EXPECT_FALSE(isTold);
}

} // namespace
} // namespace calmora
