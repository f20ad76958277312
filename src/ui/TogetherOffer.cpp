// SPDX-License-Identifier: MIT
#include "ui/TogetherOffer.h"

#include "settings/ExtraSettings.h"

namespace calmora {

std::optional<NoteOffer> togetherOffer(ExtraSettings& extras, std::function<void()> answered) {
    if (extras.quitsTogether() || extras.wasQuittingTogetherOffered()) {
        return {};
    }
    const auto answer = [&extras, answered](bool isAccepted) {
        return [&extras, answered, isAccepted] {
            extras.wasQuittingTogetherOffered.set(true);
            if (isAccepted) {
                extras.quitsTogether.set(true);
            }
            answered();
        };
    };
    return NoteOffer{.text = "Some stayed. Calmora can quit all at once and say in the list what "
                             "stays and why.",
                     .acceptTitle = "Switch on",
                     .accept = answer(true),
                     .decline = answer(false)};
}

} // namespace calmora
