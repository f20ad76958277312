// SPDX-License-Identifier: MIT
#include "updates/FeedSource.h"

#include "platform/RunLoop.h"
#include "support/LoadedLibrary.h"
#include "updates/FeedAddress.h"
#include "updates/FeedTransfer.h"
#include "updates/ReleaseReader.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QUrl>

#include <memory>
#include <utility>

namespace calmora {
namespace {

FeedAddress addressOf(const QUrl& url) {
    return {url.scheme().toStdString(), url.host().toStdString()};
}

ReleaseList readAnswer(const FeedAnswer& answer, const std::vector<std::string>& languages) {
    if (const auto* error = std::get_if<UpdateError>(&answer)) {
        return *error;
    }
    const auto& content = std::get<QByteArray>(answer);
    return readReleases({content.data(), static_cast<std::size_t>(content.size())}, languages);
}

/// At most one byte more than is allowed.
FeedAnswer readFile(const QString& name) {
    QFile file(name);
    // Reading a pipe could block.
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly)) {
        return UpdateError::unreachable;
    }
    return file.read(largestFeed + 1);
}

} // namespace

std::vector<std::string> releaseLanguages() {
    std::vector<std::string> languages;
    for (QString tag : QLocale().uiLanguages()) {
        if (QLocale(tag).language() == QLocale::English) {
            break;
        }
        languages.push_back(tag.replace('-', '_').toStdString());
    }
    return languages;
}

FeedSource::FeedSource(std::string address, std::filesystem::path networkLibrary,
                       std::vector<std::string> languages, RunLoop& runLoop)
    : address_(std::move(address)), networkLibrary_(std::move(networkLibrary)),
      languages_(std::move(languages)), runLoop_(runLoop) {}

Subscription FeedSource::fetch(std::function<void(const ReleaseList&)> done) {
    const QUrl url(QString::fromStdString(address_), QUrl::StrictMode);
    const FeedAddress address = addressOf(url);
    const auto tell = [&](std::function<FeedAnswer()> answer) {
        return runLoop_.nextTurn([answer = std::move(answer), done, languages = languages_] {
            done(readAnswer(answer(), languages));
        });
    };
    if (!url.isValid() || !mayFetch(address)) {
        return tell([] { return UpdateError::address; });
    }
    if (url.isLocalFile()) {
        return tell([name = url.toLocalFile()] { return readFile(name); });
    }
    auto* start = functionIn<StartFeedTransfer>(networkLibrary_, startFeedTransferName);
    if (!start) {
        return tell([] { return UpdateError::loader; });
    }
    const FeedRequest request{.address = url,
                              .largest = largestFeed,
                              .isLocal = isLoopback(address.host),
                              .mayFollow = [address](const QUrl& target) {
                                  return target.isValid() && mayFollow(address, addressOf(target));
                              }};
    auto transfer = std::make_shared<std::unique_ptr<FeedTransfer>>();
    transfer->reset(start(request, [done, languages = languages_](const FeedAnswer& answer) {
        done(readAnswer(answer, languages));
    }));
    return Subscription([transfer] { transfer->reset(); });
}

} // namespace calmora
