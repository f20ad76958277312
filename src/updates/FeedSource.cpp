// SPDX-License-Identifier: MIT
#include "updates/FeedSource.h"

#include "platform/RunLoop.h"
#include "updates/FeedAddress.h"
#include "updates/FeedTransfer.h"
#include "updates/ReleaseReader.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QUrl>

#include <cstdlib>
#include <memory>
#include <utility>
#include <variant>

namespace calmora {
namespace {

using FeedAnswer = std::variant<QByteArray, UpdateError>;

ReleaseList readAnswer(const FeedAnswer& answer, const std::vector<std::string>& languages) {
    if (const auto* error = std::get_if<UpdateError>(&answer)) {
        return *error;
    }
    const auto& content = std::get<QByteArray>(answer);
    return readReleases({content.data(), static_cast<std::size_t>(content.size())}, languages);
}

/// A running transfer; destroying it cancels it.
class Transfer {
  public:
    /// Tells the answer once from the main loop; `done` may destroy this object.
    Transfer(const std::filesystem::path& program, const std::string& address,
             std::function<void(const FeedAnswer&)> done)
        : done_(std::move(done)) {
        process_->setStandardInputFile(QProcess::nullDevice());
        process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QProcess* process = process_.get();
        QObject::connect(process, &QProcess::readyReadStandardOutput, process, [this] {
            received_ += process_->readAllStandardOutput();
            if (received_.size() > largestFeed) {
                tell(UpdateError::tooLarge);
            }
        });
        QObject::connect(process, &QProcess::finished, process,
                         [this](int status, QProcess::ExitStatus how) { finish(status, how); });
        QObject::connect(
            process, &QProcess::errorOccurred, process,
            [this](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart) {
                    tell(UpdateError::loader);
                }
            },
            Qt::QueuedConnection);
        process_->start(QString::fromStdString(program.string()),
                        {QString::fromStdString(address)});
    }

    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    ~Transfer() {
        QProcess* process = process_.release();
        process->disconnect();
        // Later, because this may run inside a signal of the process, and without a wait.
        if (process->state() == QProcess::NotRunning) {
            process->deleteLater();
        } else {
            QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
            process->kill();
        }
    }

  private:
    void finish(int status, QProcess::ExitStatus how) {
        if (how == QProcess::NormalExit && status == EXIT_SUCCESS) {
            tell(received_);
        } else {
            const auto error =
                how == QProcess::NormalExit ? errorOfExitStatus(status) : std::nullopt;
            tell(error.value_or(UpdateError::unreachable));
        }
    }

    void tell(const FeedAnswer& answer) {
        const auto done = std::exchange(done_, nullptr);
        process_->disconnect();
        done(answer);
    }

    std::function<void(const FeedAnswer&)> done_;
    std::unique_ptr<QProcess> process_ = std::make_unique<QProcess>();
    QByteArray received_;
};

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

FeedSource::FeedSource(std::string address, std::filesystem::path program,
                       std::vector<std::string> languages, RunLoop& runLoop)
    : address_(std::move(address)), program_(std::move(program)), languages_(std::move(languages)),
      runLoop_(runLoop) {}

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
    auto transfer = std::make_shared<std::unique_ptr<Transfer>>();
    *transfer = std::make_unique<Transfer>(
        program_, address_, [done, languages = languages_](const FeedAnswer& answer) {
            done(readAnswer(answer, languages));
        });
    return Subscription([transfer] { transfer->reset(); });
}

} // namespace calmora
