// SPDX-License-Identifier: MIT
#include "updates/FeedTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <memory>
#include <utility>

namespace calmora {
namespace {

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

class NetworkTransfer final : public FeedTransfer {
  public:
    NetworkTransfer(const FeedRequest& request, std::function<void(const FeedAnswer&)> done)
        : largest_(request.largest), mayFollow_(request.mayFollow), done_(std::move(done)),
          manager_(new QNetworkAccessManager) {
        if (request.isLocal) {
            manager_->setProxy(QNetworkProxy::NoProxy);
        }
        ask(request.address);
    }

    NetworkTransfer(const NetworkTransfer&) = delete;
    NetworkTransfer& operator=(const NetworkTransfer&) = delete;

    ~NetworkTransfer() override {
        reply_->disconnect();
        reply_->abort();
        // Later, because this may run inside a signal of the reply.
        manager_.release()->deleteLater();
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
        reply_ = manager_->get(request);
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
                received_.size() > largest_ ||
                reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong() > largest_;
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
            tell(received_);
        }
    }

    void follow(const QUrl& target) {
        if (++redirects_ > mostRedirects || !mayFollow_(target)) {
            tell(UpdateError::redirect);
            return;
        }
        reply_->disconnect();
        reply_->deleteLater();
        received_.clear();
        ask(target);
    }

    /// May destroy this object.
    void tell(const FeedAnswer& answer) {
        const auto done = std::exchange(done_, nullptr);
        done(answer);
    }

    qint64 largest_;
    std::function<bool(const QUrl&)> mayFollow_;
    std::function<void(const FeedAnswer&)> done_;
    std::unique_ptr<QNetworkAccessManager> manager_;
    /// Owned by the manager.
    QNetworkReply* reply_ = nullptr;
    QByteArray received_;
    bool isTooLarge_ = false;
    int redirects_ = 0;
};

} // namespace
} // namespace calmora

extern "C" Q_DECL_EXPORT calmora::FeedTransfer*
calmoraStartFeedTransfer(const calmora::FeedRequest& request,
                         std::function<void(const calmora::FeedAnswer&)> done) {
    return std::make_unique<calmora::NetworkTransfer>(request, std::move(done)).release();
}
