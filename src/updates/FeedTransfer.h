// SPDX-License-Identifier: MIT
#pragma once

#include "updates/FeedAddress.h"
#include "updates/Release.h"

#include <QUrl>

#include <optional>

namespace calmora {

/// The exit status with which calmora_fetch tells an error.
[[nodiscard]] constexpr int exitStatusOf(UpdateError error) {
    constexpr int first = 64; // Others end programs with small ones.
    return first + static_cast<int>(error);
}

/// The error that an exit status tells; absent for any other status.
[[nodiscard]] constexpr std::optional<UpdateError> errorOfExitStatus(int status) {
    const auto error = static_cast<UpdateError>(status - exitStatusOf(UpdateError{}));
    return error >= UpdateError{} && error <= UpdateError::version ? std::optional(error)
                                                                   : std::nullopt;
}

/// The parts of an address that decide whether it may be read.
[[nodiscard]] inline FeedAddress addressOf(const QUrl& url) {
    return {url.scheme().toStdString(), url.host().toStdString()};
}

} // namespace calmora
