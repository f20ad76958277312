#include "settings/OpenAtLogin.h"

#include "platform/LoginItem.h"
#include "settings/AppSettings.h"

namespace calmora {

OpenAtLogin::OpenAtLogin(AppSettings& settings, LoginItem& loginItem)
    : settings_(settings), loginItem_(loginItem), isEnabled_(loginItem.isEnabled()) {
    settings_.openAtLogin.set(isEnabled_);
    change_ = settings_.openAtLogin.observe([this] { apply(); });
}

void OpenAtLogin::apply() {
    const bool wanted = settings_.openAtLogin();
    if (wanted == isEnabled_) {
        return; // The preference was reset.
    }
    if (loginItem_.setEnabled(wanted)) {
        isEnabled_ = wanted;
    } else {
        settings_.openAtLogin.set(isEnabled_);
    }
}

} // namespace calmora
