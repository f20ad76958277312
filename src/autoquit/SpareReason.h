// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

/// Why auto-quit leaves an application alone.
enum class SpareReason {
    // Whatever it does:
    isUnidentified,
    /// Nobody tells when it is in front.
    activityIsUnknown,
    /// The desktop would end it while it asks the user.
    mustAnswerSoon,
    isMusicPlayer,
    isFileManager,
    isOnNeverQuitList,
    isTerminal,
    /// The catalogue, the annex or its desktop entry says that somebody may rely on it.
    isReliedOn,

    // Now:
    /// It has not been in front since the program started.
    wasNotInFrontYet,
    isInFront,
    playsSound,
    recordsSound,
    playsMedia,
    sharesScreen,
    inhibitsSleep,
    isFullScreen,
    isBusy,
    /// How busy it is will be known at the next check.
    isNotMeasuredYet,
    /// Whoever knows whether it is in use did not answer.
    useIsUnknown,
    /// The notice that is due before could not be shown.
    noticeFailed,
    /// It was asked to quit, has stayed and has not been used since.
    wasAsked,
};

/// Whether the reason holds whatever the application does.
[[nodiscard]] constexpr bool isPermanent(SpareReason reason) {
    return reason <= SpareReason::isReliedOn;
}

/// Whether the reason means that somebody uses the application now.
[[nodiscard]] constexpr bool isUse(SpareReason reason) {
    return reason >= SpareReason::isInFront && reason <= SpareReason::isFullScreen;
}

} // namespace calmora
