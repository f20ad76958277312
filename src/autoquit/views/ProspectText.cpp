// SPDX-License-Identifier: MIT
#include "autoquit/views/ProspectText.h"

#include "autoquit/Forecast.h"
#include "widgets/DisplayText.h"

namespace calmora {
namespace {

QString neverText(SpareReason reason) {
    switch (reason) {
    case SpareReason::activityIsUnknown:
        return uiText("activity unknown");
    case SpareReason::mustAnswerSoon:
        return uiText("the desktop leaves it no time to ask you");
    case SpareReason::isMusicPlayer:
        return uiText("music player");
    case SpareReason::isFileManager:
        return uiText("file manager");
    case SpareReason::isOnNeverQuitList:
        return uiText("protected");
    case SpareReason::isTerminal:
        return uiText("terminal");
    case SpareReason::isReliedOn:
        return uiText("needed in the background");
    default:
        return uiText("not identified");
    }
}

QString leftText(const Prospect& prospect) {
    if (!prospect.left) {
        return uiText("Never: %@", uiText("the time is too long"));
    }
    const qlonglong minutes = prospect.left->count();
    const QString text = prospect.unlessBusy ? uiCount("In %lld min unless busy", minutes)
                                             : uiCount("In %lld min", minutes);
    const QString before = prospect.before ? reasonText(*prospect.before) : QString();
    return before.isEmpty() ? text : text + " · " + uiText("last spared: %@", before);
}

} // namespace

QString prospectText(const Prospect& prospect) {
    if (!prospect.reason) {
        return leftText(prospect);
    }
    switch (*prospect.reason) {
    case SpareReason::wasNotInFrontYet:
        return uiText("Not before you use it");
    case SpareReason::isInFront:
        return uiText("Not while in front");
    case SpareReason::wasAsked:
        return uiText("Was asked to quit and stayed");
    default:
        return isPermanent(*prospect.reason) ? uiText("Never: %@", neverText(*prospect.reason))
                                             : uiText("Spared: %@", reasonText(*prospect.reason));
    }
}

QString reasonText(SpareReason reason) {
    switch (reason) {
    case SpareReason::playsSound:
        return uiText("plays sound");
    case SpareReason::recordsSound:
        return uiText("records sound");
    case SpareReason::playsMedia:
        return uiText("plays media");
    case SpareReason::sharesScreen:
        return uiText("shares the screen");
    case SpareReason::inhibitsSleep:
        return uiText("keeps the computer awake");
    case SpareReason::isFullScreen:
        return uiText("full screen");
    case SpareReason::isBusy:
        return uiText("busy");
    case SpareReason::useIsUnknown:
        return uiText("its use cannot be checked");
    case SpareReason::noticeFailed:
        return uiText("the notice could not be shown");
    default:
        return isPermanent(reason) ? neverText(reason) : QString();
    }
}

} // namespace calmora
