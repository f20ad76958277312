#include "settings/CheckForUpdatesViewModel.h"

#include "platform/Updater.h"

#include <utility>

namespace calmora {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(Updater& updater) {
    updates_ = updater.observeCanCheckForUpdates([this](bool canCheck) {
        canCheckForUpdates_ = canCheck;
        changed_.emit();
    });
}

Subscription CheckForUpdatesViewModel::observe(std::function<void()> handler) {
    return changed_.connect(std::move(handler));
}

} // namespace calmora
