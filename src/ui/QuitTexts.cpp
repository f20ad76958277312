// SPDX-License-Identifier: MIT
#include "ui/QuitTexts.h"

#include "platform/LocalizedStrings.h"
#include "widgets/DisplayText.h"

#include <cstdint>

namespace calmora {

QString quitText(QuitState state) {
    switch (state) {
    case QuitState::quitting:
        return uiText("Quitting…");
    case QuitState::asks:
        return uiText("Asks to save");
    case QuitState::doesNotAnswer:
        return uiText("Does not answer");
    case QuitState::cameBack:
        return uiText("Came back by itself");
    case QuitState::notAllowed:
        return uiText("Not allowed");
    case QuitState::none:
        break;
    }
    return {};
}

QString resultText(const QuitResult& result) {
    const auto ended = static_cast<qlonglong>(result.ended);
    const QString counts = result.left == 0
                               ? uiCount("%lld quit", ended)
                               : QString::fromStdString(fillPlaceholders(
                                     uiCount("%lld quit, %lld left", ended).toStdString(),
                                     {static_cast<std::int64_t>(result.left)}));
    return result.freedMB < 1
               ? counts
               : counts + QStringLiteral(" · ") + uiText("%@ freed", amountText(result.freedMB));
}

} // namespace calmora
