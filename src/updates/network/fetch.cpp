// SPDX-License-Identifier: MIT
// Transfers a list of releases for Calmora: calmora_fetch ADDRESS. The list goes to the standard
// output, an error into the exit status.
//
// This is a program of its own because Qt's threads read what a server sends for as long as it
// sends, whoever cancels: only the end of the process ends them for certain. It is also as large as
// everything else.
#include "updates/FeedTransfer.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <cstdio>
#include <cstdlib>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace calmora;

constexpr int mostRedirects = 5;
/// The HTTP status "OK".
constexpr int isContent = 200;
/// Size of the read buffer, in bytes.
constexpr qint64 readAhead = qint64{64} * 1024;

UpdateError meaningOf(QNetworkReply::NetworkError error) {
    if (error == QNetworkReply::SslHandshakeFailedError) {
        return UpdateError::insecure;
    }
    // These errors and all after them are answers of the server.
    return error >= QNetworkReply::ContentAccessDenied ? UpdateError::refused
                                                       : UpdateError::unreachable;
}

/// The transfer, which ends the process.
class Transfer {
  public:
    explicit Transfer(const QUrl& address) : address_(addressOf(address)) {
        if (isLoopback(address_.host)) {
            manager_.setProxy(QNetworkProxy::NoProxy);
        }
        ask(address);
    }

  private:
    void ask(const QUrl& address) {
        QNetworkRequest request(address);
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::ManualRedirectPolicy);
        request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
        request.setHeader(QNetworkRequest::UserAgentHeader, "Calmora");
        // A small compressed body must not unpack into a large text.
        request.setRawHeader("Accept-Encoding", "identity");
        reply_ = manager_.get(request);
        reply_->setReadBufferSize(readAhead);
        QObject::connect(reply_, &QNetworkReply::readyRead, reply_, [this] {
            if (!receive()) {
                reply_->abort();
            }
        });
        QObject::connect(reply_, &QNetworkReply::finished, reply_, [this] { finish(); });
    }

    /// Reads the available data; false if it is, or will be, too much.
    bool receive() {
        if (!isTooLarge_) {
            received_ += reply_->readAll();
            isTooLarge_ =
                received_.size() > largestFeed ||
                reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong() > largestFeed;
        }
        return !isTooLarge_;
    }

    void finish() {
        if (reply_->isReadable()) {
            receive();
        }
        const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        if (isTooLarge_) {
            tell(UpdateError::tooLarge);
        } else if (reply_->error() != QNetworkReply::NoError) {
            tell(meaningOf(reply_->error()));
        } else if (!target.isEmpty()) {
            follow(reply_->url().resolved(target));
        } else if (reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute) != isContent) {
            tell(UpdateError::refused);
        } else {
            std::fwrite(received_.constData(), 1, static_cast<std::size_t>(received_.size()),
                        stdout);
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        }
    }

    void follow(const QUrl& target) {
        if (++redirects_ > mostRedirects || !target.isValid() ||
            !mayFollow(address_, addressOf(target))) {
            tell(UpdateError::redirect);
        }
        reply_->disconnect();
        reply_->deleteLater();
        received_.clear();
        ask(target);
    }

    /// Does not wait for Qt's threads.
    [[noreturn]] static void tell(UpdateError error) { std::_Exit(exitStatusOf(error)); }

    FeedAddress address_;
    QNetworkAccessManager manager_;
    /// Owned by the manager.
    QNetworkReply* reply_ = nullptr;
    QByteArray received_;
    bool isTooLarge_ = false;
    int redirects_ = 0;
};

/// Ends with Calmora, at the latest in a minute, and takes no more memory than it may need.
void limitThisProcess() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    constexpr unsigned seconds = 60;
    alarm(seconds);
#ifndef __SANITIZE_ADDRESS__ // Which takes terabytes of addresses.
    constexpr rlim_t bytes = rlim_t{256} * 1024 * 1024;
    const rlimit memory{bytes, bytes};
    setrlimit(RLIMIT_DATA, &memory);
#endif
    const rlimit nothing{0, 0};
    setrlimit(RLIMIT_CORE, &nothing);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QUrl address(QString::fromLocal8Bit(argc == 2 ? argv[1] : ""), QUrl::StrictMode);
    if (!address.isValid() || address.isLocalFile() || !mayFetch(addressOf(address))) {
        return exitStatusOf(UpdateError::address);
    }
    limitThisProcess();
    const Transfer transfer(address);
    return QCoreApplication::exec();
}
