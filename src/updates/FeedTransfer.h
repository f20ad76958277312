// SPDX-License-Identifier: MIT
#pragma once

#include "updates/Release.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <variant>

namespace calmora {

/// What to transfer, and its limits.
struct FeedRequest {
    QUrl address;
    /// In bytes.
    qint64 largest = 0;
    /// The address is this machine's, which no proxy can reach.
    bool isLocal = false;
    /// Whether the server may redirect to an address.
    std::function<bool(const QUrl&)> mayFollow;
};

using FeedAnswer = std::variant<QByteArray, UpdateError>;

/// A running transfer; destroying it cancels it.
class FeedTransfer {
  public:
    virtual ~FeedTransfer() = default;
};

/// Starts a transfer, which the caller owns, and tells the answer once from the main loop. `done`
/// may end the transfer.
using StartFeedTransfer = FeedTransfer*(const FeedRequest& request,
                                        std::function<void(const FeedAnswer&)> done);

/// The name of the function, of type StartFeedTransfer, that the network library exports.
inline constexpr const char* startFeedTransferName = "calmoraStartFeedTransfer";

} // namespace calmora
